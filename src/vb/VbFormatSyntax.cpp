// SPDX-License-Identifier: MIT
#include "vb/VbFormatSyntax_p.h"

#include "vb/VbFormat_p.h"

#include <utility>

namespace VemoGridLib::vb::detail {

namespace {

struct NamedFormat
{
    const char16_t* name;
    const char16_t* enUS;
    const char16_t* zhCN;
};

// Each named format as the user-defined format it stands for. "General Number" is the general
// form (CStr), i.e. the empty format. The booleans are three literal sections: anything but zero
// is True. Currency follows the locale: en-US writes negatives in parentheses ("($1.00)"),
// zh-CN with a leading minus ("-¥1.00").
constexpr NamedFormat NamedNumberFormats[] = {
    {u"General Number", u"", u""},
    {u"Currency", u"$#,##0.00;($#,##0.00)", u"\u00A5#,##0.00;-\u00A5#,##0.00"},
    {u"Fixed", u"0.00", u"0.00"},
    {u"Standard", u"#,##0.00", u"#,##0.00"},
    {u"Percent", u"0.00%", u"0.00%"},
    {u"Scientific", u"0.00E+00", u"0.00E+00"},
    {u"True/False", u"\"True\";\"True\";\"False\"", u"\"True\";\"True\";\"False\""},
    {u"Yes/No", u"\"Yes\";\"Yes\";\"No\"", u"\"Yes\";\"Yes\";\"No\""},
    {u"On/Off", u"\"On\";\"On\";\"Off\"", u"\"On\";\"On\";\"Off\""},
};

std::optional<FormatKind> tokenKindAt(const QString& section, qsizetype pos)
{
    const QChar c = section.at(pos);
    if (c == u'0' || c == u'#' || c == u'.')
        return FormatKind::Number;
    if (QStringView(u"@&<>!").contains(c))
        return FormatKind::Text;
    if (startsDateToken(section, pos))
        return FormatKind::Date;
    return std::nullopt;
}

} // namespace

std::optional<FormatLiteral> literalAt(const QString& format, qsizetype pos)
{
    const QChar c = format.at(pos);
    if (c == u'"') {
        const qsizetype close = format.indexOf(u'"', pos + 1);
        const qsizetype contentEnd = close < 0 ? format.size() : close;
        return FormatLiteral{format.mid(pos + 1, contentEnd - pos - 1),
                             std::min(contentEnd + 1, format.size())};
    }
    if (c == u'\\')
        return FormatLiteral{format.mid(pos + 1, 1), std::min(pos + 2, format.size())};
    return std::nullopt;
}

QStringList formatSections(const QString& format)
{
    QStringList sections(1);
    for (qsizetype pos = 0; pos < format.size();) {
        if (const std::optional<FormatLiteral> literal = literalAt(format, pos)) {
            sections.last() += QStringView(format).mid(pos, literal->end - pos);
            pos = literal->end;
        } else if (format.at(pos) == u';') {
            sections.append(QString());
            ++pos;
        } else {
            sections.last() += format.at(pos++);
        }
    }
    return sections;
}

std::optional<QString> namedNumberFormat(const QString& format, VbLocale locale)
{
    for (const NamedFormat& named : NamedNumberFormats) {
        if (format.compare(QStringView(named.name), Qt::CaseInsensitive) == 0)
            return QString::fromUtf16(locale == VbLocale::ZhCN ? named.zhCN : named.enUS);
    }
    return std::nullopt;
}

QString spreadsheetLiteral(const QString& text)
{
    // Characters a spreadsheet shows as they are need no quotes; a quote is escaped.
    QString out;
    QString run;
    const auto endRun = [&] {
        if (!run.isEmpty())
            out += u'"' + std::exchange(run, QString()) + u'"';
    };
    for (const QChar c : text) {
        if (c == u'"' || QStringView(u" $-+/():!^&'~{}<>=").contains(c)) {
            endRun();
            out += c == u'"' ? QStringLiteral("\\\"") : QString(c);
        } else {
            run += c;
        }
    }
    endRun();
    return out;
}

QString spreadsheetNumberFormat(const QString& format, VbLocale locale)
{
    const QString expanded = namedNumberFormat(format, locale).value_or(format);
    QString out;
    for (qsizetype pos = 0; pos < expanded.size();) {
        if (const std::optional<FormatLiteral> literal = literalAt(expanded, pos)) {
            out += spreadsheetLiteral(literal->text);
            pos = literal->end;
            continue;
        }
        const QChar c = expanded.at(pos++);
        if (QStringView(u"0#?.,%Ee+-;@$()/: ").contains(c))
            out += c;
        else
            out += spreadsheetLiteral(c);
    }
    return out;
}

FormatKind formatKind(const QString& format)
{
    // Names first: "Standard" and "Long Date" hold letters that would read as date tokens.
    if (namedNumberFormat(format, VbLocale::EnUS))
        return FormatKind::Number;
    if (isNamedDateFormat(format))
        return FormatKind::Date;
    const QString first = formatSections(format).constFirst();
    for (qsizetype pos = 0; pos < first.size();) {
        if (const std::optional<FormatLiteral> literal = literalAt(first, pos)) {
            pos = literal->end;
            continue;
        }
        if (const std::optional<FormatKind> kind = tokenKindAt(first, pos))
            return *kind;
        ++pos;
    }
    return FormatKind::Literal;
}

bool isDateFormat(const QString& format)
{
    return formatKind(format) == FormatKind::Date;
}

} // namespace VemoGridLib::vb::detail
