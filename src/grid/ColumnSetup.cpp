// SPDX-License-Identifier: MIT
#include "grid/ColumnSetup.h"

#include "common/VemoError.h"

#include <QLocale>
#include <QMetaEnum>
#include <QSet>

#include <algorithm>
#include <cmath>
#include <type_traits>

namespace VemoGridLib {

namespace {

constexpr int MaxColumn = 65535;
constexpr int MaxDecimals = 15;
constexpr int MaxShort = 32767;

// A value that does not read; the line reader adds the line number.
struct BadSetting
{
    QString what;
};

int wholeNumber(const QString& text, int min, int max)
{
    bool ok = false;
    const int value = text.toInt(&ok);
    if (!ok || value < min || value > max)
        throw BadSetting{QStringLiteral("\"%1\" is not a whole number from %2 to %3")
                             .arg(text)
                             .arg(min)
                             .arg(max)};
    return value;
}

double number(const QString& text)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok || !std::isfinite(value))
        throw BadSetting{QStringLiteral("\"%1\" is not a number").arg(text)};
    return value;
}

bool boolean(const QString& text)
{
    if (text == QLatin1StringView("true"))
        return true;
    if (text == QLatin1StringView("false"))
        return false;
    throw BadSetting{QStringLiteral("\"%1\" is neither true nor false").arg(text)};
}

// The compare mode lives in the VB runtime, which has no meta-object; its two names are here.
constexpr const char* CompareNames[] = {"vbBinaryCompare", "vbTextCompare"};

const char* enumName(vb::CompareMethod value)
{
    return value == vb::vbBinaryCompare || value == vb::vbTextCompare ? CompareNames[value]
                                                                      : nullptr;
}

template <typename Enum>
const char* enumName(Enum value)
{
    return QMetaEnum::fromType<Enum>().valueToKey(int(value));
}

// The column enumerations are small and start at 0.
constexpr int EnumValuesTried = 64;

template <typename Enum>
Enum enumeration(const QString& text)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    for (int value = 0; value < EnumValuesTried; ++value) {
        const char* name = enumName(Enum(value));
        if (name && (isNumber ? value == number : text == QLatin1StringView(name)))
            return Enum(value);
    }
    throw BadSetting{QStringLiteral("\"%1\" is no %2 value")
                         .arg(text, QString::fromLatin1(QMetaType::fromType<Enum>().name()))};
}

QString valueText(int value)
{
    return QString::number(value);
}

QString valueText(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

QString valueText(const QString& value)
{
    return value;
}

QString valueText(const std::optional<double>& value)
{
    return QString::number(*value, 'g', QLocale::FloatingPointShortest);
}

template <typename Enum>
requires std::is_enum_v<Enum> QString valueText(Enum value)
{
    return QString::fromLatin1(enumName(value));
}

// ---- the keys -----------------------------------------------------------------------------------

using Reader = void (*)(ColumnSettings&, const QString&);
using Writer = QStringList (*)(const ColumnSettings&);

struct Key
{
    const char* name;
    Reader read;
    Writer write;
};

template <auto Member>
QStringList written(const ColumnSettings& settings)
{
    static const ColumnSettings defaults;
    if (settings.*Member == defaults.*Member)
        return {};
    return {valueText(settings.*Member)};
}

QStringList writtenItems(const ColumnSettings& settings)
{
    return settings.Items;
}

template <auto Member, int Min, int Max>
void readWhole(ColumnSettings& settings, const QString& text)
{
    settings.*Member = wholeNumber(text, Min, Max);
}

template <auto Member>
void readFlag(ColumnSettings& settings, const QString& text)
{
    settings.*Member = boolean(text);
}

template <auto Member>
void readText(ColumnSettings& settings, const QString& text)
{
    settings.*Member = text;
}

template <auto Member>
void readNumber(ColumnSettings& settings, const QString& text)
{
    settings.*Member = number(text);
}

template <auto Member>
void readEnum(ColumnSettings& settings, const QString& text)
{
    using Enum = std::remove_cvref_t<decltype(settings.*Member)>;
    settings.*Member = enumeration<Enum>(text);
}

void readItem(ColumnSettings& settings, const QString& text)
{
    settings.Items.append(text);
}

using S = ColumnSettings;

// In the order they are written.
constexpr Key Keys[] = {
    {"Header", readText<&S::Header>, written<&S::Header>},
    {"Width", readWhole<&S::Width, -1, 0x7fffffff>, written<&S::Width>},
    {"ColType", readEnum<&S::ColType>, written<&S::ColType>},
    {"DecimalLength", readWhole<&S::DecimalLength, 0, MaxDecimals>, written<&S::DecimalLength>},
    {"FormatString", readText<&S::FormatString>, written<&S::FormatString>},
    {"MinValue", readNumber<&S::MinValue>, written<&S::MinValue>},
    {"MaxValue", readNumber<&S::MaxValue>, written<&S::MaxValue>},
    {"Locked", readFlag<&S::Locked>, written<&S::Locked>},
    {"AutoAdd", readFlag<&S::AutoAdd>, written<&S::AutoAdd>},
    {"ShowZero", readFlag<&S::ShowZero>, written<&S::ShowZero>},
    {"SortType", readEnum<&S::SortType>, written<&S::SortType>},
    {"ListHeader", readText<&S::ListHeader>, written<&S::ListHeader>},
    {"ListWidth", readWhole<&S::ListWidth, -1, MaxShort>, written<&S::ListWidth>},
    {"VisibleRows", readWhole<&S::VisibleRows, 1, MaxShort>, written<&S::VisibleRows>},
    {"SelectCol", readWhole<&S::SelectCol, 0, MaxShort>, written<&S::SelectCol>},
    {"ShowHeader", readFlag<&S::ShowHeader>, written<&S::ShowHeader>},
    {"AutoDropDown", readFlag<&S::AutoDropDown>, written<&S::AutoDropDown>},
    {"HotTracking", readFlag<&S::HotTracking>, written<&S::HotTracking>},
    {"CompareMode", readEnum<&S::CompareMode>, written<&S::CompareMode>},
    {"Item", readItem, writtenItems},
};

const Key* findKey(const QString& name)
{
    for (const Key& key : Keys)
        if (name == QLatin1StringView(key.name))
            return &key;
    return nullptr;
}

// ---- one line -----------------------------------------------------------------------------------

class LineReader
{
public:
    explicit LineReader(QStringView line)
        : m_line(line)
    {}

    bool atEnd()
    {
        skipSpaces();
        return m_pos >= m_line.size();
    }

    // A run of characters up to a space, a quote or `stop`.
    QString word(QChar stop)
    {
        const qsizetype start = m_pos;
        while (m_pos < m_line.size() && !m_line[m_pos].isSpace() && m_line[m_pos] != stop &&
               m_line[m_pos] != u'"')
            ++m_pos;
        return m_line.sliced(start, m_pos - start).toString();
    }

    void expect(QChar expected, const QString& after)
    {
        if (m_pos >= m_line.size() || m_line[m_pos] != expected)
            throw BadSetting{
                QStringLiteral("\"%1\" is not followed by \"%2\"").arg(after, expected)};
        ++m_pos;
    }

    QString value()
    {
        if (m_pos < m_line.size() && m_line[m_pos] == u'"')
            return quoted();
        return word(u'=');
    }

private:
    void skipSpaces()
    {
        while (m_pos < m_line.size() && m_line[m_pos].isSpace())
            ++m_pos;
    }

    QString quoted()
    {
        QString text;
        for (++m_pos; m_pos < m_line.size(); ++m_pos) {
            const QChar c = m_line[m_pos];
            if (c == u'"') {
                ++m_pos;
                return text;
            }
            if (c != u'\\') {
                text += c;
                continue;
            }
            if (++m_pos == m_line.size())
                break;
            switch (m_line[m_pos].unicode()) {
            case u't':
                text += u'\t';
                break;
            case u'n':
                text += u'\n';
                break;
            case u'"':
            case u'\\':
                text += m_line[m_pos];
                break;
            default:
                throw BadSetting{QStringLiteral("unknown escape \"\\%1\"").arg(m_line[m_pos])};
            }
        }
        throw BadSetting{QStringLiteral("a quoted value is not closed")};
    }

    QStringView m_line;
    qsizetype m_pos = 0;
};

void checkCombination(const ColumnSettings& settings)
{
    if (settings.DecimalLength >= 0 && (settings.ColType == eCurrency || settings.ColType == eLong))
        throw BadSetting{QStringLiteral("DecimalLength does not apply to %1 columns")
                             .arg(valueText(settings.ColType))};
    if (settings.MinValue && settings.MaxValue && *settings.MinValue > *settings.MaxValue)
        throw BadSetting{QStringLiteral("MinValue is above MaxValue")};
}

ColumnSettings readLine(QStringView line)
{
    LineReader reader(line);
    ColumnSettings settings;
    reader.atEnd();
    settings.Col = wholeNumber(reader.word(u'='), 1, MaxColumn);
    QSet<const Key*> seen;
    while (!reader.atEnd()) {
        const QString name = reader.word(u'=');
        const Key* key = findKey(name);
        if (!key)
            throw BadSetting{QStringLiteral("unknown setting \"%1\"").arg(name)};
        if (key->read != readItem && seen.contains(key))
            throw BadSetting{QStringLiteral("%1 is given twice").arg(name)};
        seen.insert(key);
        reader.expect(u'=', name);
        key->read(settings, reader.value());
    }
    checkCombination(settings);
    return settings;
}

QString quotedIfNeeded(const QString& value)
{
    const bool bare = !value.isEmpty() && std::none_of(value.begin(), value.end(), [](QChar c) {
        return c.isSpace() || c == u'"' || c == u'=' || c == u'\\';
    });
    if (bare)
        return value;
    QString text = QStringLiteral("\"");
    for (const QChar c : value) {
        if (c == u'\t')
            text += QLatin1StringView("\\t");
        else if (c == u'\n')
            text += QLatin1StringView("\\n");
        else if (c == u'"' || c == u'\\')
            text.append(u'\\').append(c);
        else
            text += c;
    }
    return text + u'"';
}

} // namespace

QList<ColumnSettings> parseColumnSetup(const QString& text)
{
    QList<ColumnSettings> columns;
    QSet<int> seenColumns;
    const QStringList lines = text.split(u'\n');
    for (qsizetype index = 0; index < lines.size(); ++index) {
        const QString line = lines.at(index).trimmed();
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        try {
            const ColumnSettings settings = readLine(line);
            if (seenColumns.contains(settings.Col))
                throw BadSetting{
                    QStringLiteral("column %1 is set up a second time").arg(settings.Col)};
            seenColumns.insert(settings.Col);
            columns.append(settings);
        } catch (const BadSetting& bad) {
            throw VemoError(
                VemoError::InvalidProcedureCall,
                QStringLiteral("Column setup, line %1: %2").arg(index + 1).arg(bad.what));
        }
    }
    return columns;
}

QString formatColumnSetup(const QList<ColumnSettings>& columns)
{
    QStringList lines;
    for (const ColumnSettings& settings : columns) {
        QString line = QString::number(settings.Col);
        for (const Key& key : Keys)
            for (const QString& value : key.write(settings))
                line += u' ' + QLatin1StringView(key.name) + u'=' + quotedIfNeeded(value);
        lines.append(line);
    }
    return lines.join(u'\n');
}

} // namespace VemoGridLib
