// SPDX-License-Identifier: MIT
// Fuzzes MemoryPropertyBag::fromJson. Beyond not crashing, whatever loads must save again in
// full, and that saved form must load back to the same form.
#include <VemoGridLib/MemoryPropertyBag.h>

#include "FuzzSupport.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

using VemoGridLib::MemoryPropertyBag;

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    VemoFuzz::startApplication();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QString error;
    const MemoryPropertyBag bag = VemoFuzz::bagFrom(data, size, error);
    if (!error.isEmpty())
        return 0;
    QStringList leftOut;
    const QByteArray saved = bag.toJson(&leftOut);
    if (!leftOut.isEmpty()) {
        std::fprintf(stderr, "loaded but not saved: %s\n", qPrintable(leftOut.join(u',')));
        std::abort();
    }
    const QByteArray again = MemoryPropertyBag::fromJson(saved, &error).toJson();
    if (!error.isEmpty() || again != saved) {
        std::fprintf(stderr, "saved form does not load back (%s):\n%s\n---\n%s\n",
                     qPrintable(error), saved.constData(), again.constData());
        std::abort();
    }
    return 0;
}
