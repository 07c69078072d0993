// SPDX-License-Identifier: MIT
// A host application's smallest use of the installed library.
#include <VemoGridLib/Column.h>
#include <VemoGridLib/VbRuntime.h>

#include <cstdio>

int main()
{
    VemoGridLib::Column column;
    const QString text = VemoGridLib::vb::Format(1234.5, QStringLiteral("#,##0.00"));
    std::printf("%s %d %s\n", VEMOGRIDLIB_VERSION_STRING, int(column.DecimalLength()),
                qPrintable(text));
    return column.DecimalLength() == 6 && text == QLatin1String("1,234.50") ? 0 : 1;
}
