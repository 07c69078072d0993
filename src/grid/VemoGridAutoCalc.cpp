// SPDX-License-Identifier: MIT
// VemoGrid's per-row auto-calculation of a result column from two operand columns.
#include "grid/VemoGrid_p.h"

#include "common/Messages.h"
#include "vb/VbConversion.h"
#include "vb/VbFormat.h"
#include "vb/VbStrings.h"
#include "common/VemoError.h"

#include <optional>

namespace VemoGridLib {

namespace {

bool isOperator(const QString& op)
{
    return op == QLatin1String("+") || op == QLatin1String("-") || op == QLatin1String("*") ||
           op == QLatin1String("/");
}

/// VB's Double division: x / 0 raises "Division by zero" (11), 0 / 0 "Overflow" (6).
double divide(double a, double b)
{
    if (b == 0)
        throw a == 0 ? VemoError::overflow() : VemoError(11, QStringLiteral("Division by zero"));
    return a / b;
}

/// Applies `op`; an operator that is not one of the four gives nothing.
std::optional<double> apply(const QString& op, double a, double b)
{
    if (op == QLatin1String("+"))
        return a + b;
    if (op == QLatin1String("-"))
        return a - b;
    if (op == QLatin1String("*"))
        return a * b;
    if (op == QLatin1String("/"))
        return divide(a, b);
    return std::nullopt;
}

} // namespace

void VemoGridPrivate::autoCalculate()
{
    const int col = flex->Col();
    if (autoCalcRES <= 0 || (col != autoCalc1 && col != autoCalc2) || autoCalcOPE.isEmpty() ||
        autoCalc1 <= 0 || autoCalc2 <= 0)
        return;
    const int row = flex->Row();
    const std::optional<double> a = vb::NumericValue(q->TextMatrix(row, autoCalc1));
    const std::optional<double> b = vb::NumericValue(q->TextMatrix(row, autoCalc2));
    if (!a || !b)
        return;
    const std::optional<double> result = apply(autoCalcOPE, *a, *b);
    if (!result)
        return;

    const VemoGridLib::Column* const target = column(autoCalcRES);
    const qint16 decimals = target->DecimalLength();
    if (decimals == 0) {
        q->setTextMatrix(row, autoCalcRES, vb::CStr(*result));
        return;
    }
    const double rounded = vb::Round(*result, decimals);
    if (!target->FormatString().isEmpty()) {
        q->setTextMatrix(row, autoCalcRES, vb::Format(rounded, target->FormatString()));
        return;
    }
    QString text = vb::CStr(rounded);
    q->setTextMatrix(row, autoCalcRES, text);
    // A bare leading point gets its digit in front, so ".5" reads "0.5".
    if (text.startsWith(QLatin1Char('.')))
        q->setTextMatrix(row, autoCalcRES, text.prepend(QLatin1Char('0')));
}

int VemoGrid::AutoCalc1() const
{
    return d->autoCalc1;
}

void VemoGrid::setAutoCalc1(int col)
{
    d->autoCalc1 = col;
    d->changed(QStringLiteral("AutoCalc1"));
}

int VemoGrid::AutoCalc2() const
{
    return d->autoCalc2;
}

void VemoGrid::setAutoCalc2(int col)
{
    d->autoCalc2 = col;
    d->changed(QStringLiteral("AutoCalc2"));
}

int VemoGrid::AutoCalcRES() const
{
    return d->autoCalcRES;
}

void VemoGrid::setAutoCalcRES(int col)
{
    d->autoCalcRES = col;
    d->changed(QStringLiteral("AutoCalcRES"));
}

QString VemoGrid::AutoCalcOPE() const
{
    return d->autoCalcOPE;
}

void VemoGrid::setAutoCalcOPE(const QString& op)
{
    const QString first = vb::Trim(op).left(1);
    if (!isOperator(first))
        showMessage(MessageId::BadOperator);
    d->autoCalcOPE = first;
    d->changed(QStringLiteral("AutoCalcOPE"));
}

} // namespace VemoGridLib
