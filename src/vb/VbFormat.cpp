// SPDX-License-Identifier: MIT
#include "vb/VbFormat.h"

#include "vb/VbConversion.h"
#include "vb/VbDateTime.h"
#include "vb/VbFormatSyntax_p.h"
#include "vb/VbFormat_p.h"
#include "vb/VbNumberFormat_p.h"
#include "common/VemoError.h"

#include <QList>

#include <cmath>
#include <optional>

namespace VemoGridLib::vb {

namespace {

// ---------------------------------------------------------------------------------------------
// Text formats: @ & < > ! applied to a text
// ---------------------------------------------------------------------------------------------

enum class CaseChange {
    None,
    Lower,
    Upper,
};

struct TextToken
{
    bool placeholder = false;
    bool spaceWhenEmpty = false; // '@' prints a blank when it gets no character, '&' nothing
    QString literal;
};

struct TextFormat
{
    QList<TextToken> tokens;
    int placeholders = 0;
    CaseChange caseChange = CaseChange::None;
    bool leftToRight = false;
};

// The first '<' or '>' of the section decides the case of the whole text.
void setCaseChange(TextFormat& format, CaseChange change)
{
    if (format.caseChange == CaseChange::None)
        format.caseChange = change;
}

void appendTextLiteral(TextFormat& format, const QString& text)
{
    format.tokens.append({false, false, text});
}

// Parses one character (or quoted run, or escape) at `pos`; returns the index after it.
qsizetype parseTextToken(const QString& section, qsizetype pos, TextFormat& format)
{
    if (const std::optional<detail::FormatLiteral> literal = detail::literalAt(section, pos)) {
        appendTextLiteral(format, literal->text);
        return literal->end;
    }
    const QChar c = section.at(pos);
    if (c == u'@' || c == u'&') {
        format.tokens.append({true, c == u'@', {}});
        ++format.placeholders;
    } else if (c == u'<' || c == u'>') {
        setCaseChange(format, c == u'<' ? CaseChange::Lower : CaseChange::Upper);
    } else if (c == u'!') {
        format.leftToRight = true;
    } else {
        appendTextLiteral(format, c);
    }
    return pos + 1;
}

TextFormat parseTextFormat(const QString& section)
{
    TextFormat format;
    for (qsizetype pos = 0; pos < section.size();)
        pos = parseTextToken(section, pos, format);
    return format;
}

// Simple (one-to-one) case mapping, so the text keeps its length as in VB.
QString changeCase(const QString& text, CaseChange change)
{
    if (change == CaseChange::None)
        return text;
    QList<uint> codePoints = text.toUcs4();
    for (uint& codePoint : codePoints)
        codePoint =
            change == CaseChange::Upper ? QChar::toUpper(codePoint) : QChar::toLower(codePoint);
    return QString::fromUcs4(reinterpret_cast<const char32_t*>(codePoints.constData()),
                             codePoints.size());
}

// Placeholders take the characters in order. A text shorter than the placeholders leaves the
// first ones empty (right-aligned) unless '!' asks for left alignment; characters left over
// are appended after the last token ("\x@\x@" on "testing" gives "xtxesting").
QString renderTextFormat(const TextFormat& format, const QString& text)
{
    const QString source = changeCase(text, format.caseChange);
    const qsizetype emptyLeading = source.size() < format.placeholders && !format.leftToRight
                                       ? format.placeholders - source.size()
                                       : 0;
    QString out;
    qsizetype placeholder = 0;
    qsizetype next = 0;
    for (const TextToken& token : format.tokens) {
        if (!token.placeholder) {
            out += token.literal;
            continue;
        }
        if (placeholder++ >= emptyLeading && next < source.size())
            out += source.at(next++);
        else if (token.spaceWhenEmpty)
            out += u' ';
    }
    return out + source.mid(next);
}

// A text format has one section, or two where the second is for an empty text.
QString formatText(const QString& text, const QString& format)
{
    const QStringList sections = detail::formatSections(format);
    const bool useEmptySection = text.isEmpty() && sections.size() > 1 && !sections.at(1).isEmpty();
    return renderTextFormat(parseTextFormat(sections.at(useEmptySection ? 1 : 0)), text);
}

// ---------------------------------------------------------------------------------------------
// Conversions of a text for a number or date format
// ---------------------------------------------------------------------------------------------

QString formatNumericText(const QString& text, const QString& format, VbLocale locale)
{
    if (!IsNumeric(text, locale))
        return text;
    return Format(CDbl(text, locale), format, locale);
}

// A date text is parsed with CDate; a numeric text is a day serial. A text that is neither, or
// a serial outside the Date range, comes back unchanged.
QString formatDateText(const QString& text, const QString& format, VbLocale locale)
{
    if (IsDate(text, locale))
        return detail::formatDateTime(CDate(text, locale), format, locale);
    if (!IsNumeric(text, locale))
        return text;
    try {
        return detail::formatDateTime(SerialToDate(CDbl(text, locale)), format, locale);
    } catch (const VemoError&) {
        return text;
    }
}

} // namespace

QString Format(double value, const QString& format, VbLocale locale)
{
    const QString userFormat = detail::namedNumberFormat(format, locale).value_or(format);
    if (userFormat.isEmpty() || !std::isfinite(value))
        return CStr(value);
    if (detail::formatKind(userFormat) == detail::FormatKind::Text)
        return formatText(CStr(value), userFormat);
    if (detail::isDateFormat(userFormat))
        return detail::formatDateTime(SerialToDate(value), userFormat, locale);
    return detail::formatNumber(value, userFormat);
}

QString Format(const QString& text, const QString& format, VbLocale locale)
{
    if (format.isEmpty())
        return text;
    if (detail::namedNumberFormat(format, locale))
        return formatNumericText(text, format, locale);
    if (detail::formatKind(format) == detail::FormatKind::Text)
        return formatText(text, format);
    if (detail::isDateFormat(format))
        return formatDateText(text, format, locale);
    return formatNumericText(text, format, locale);
}

} // namespace VemoGridLib::vb
