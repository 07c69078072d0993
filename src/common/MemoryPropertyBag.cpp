// SPDX-License-Identifier: MIT
// The in-memory property bag and its JSON form.
#include "common/MemoryPropertyBag.h"

#include <QFont>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QJsonValue>
#include <QLocale>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>
#include <variant>

namespace VemoGridLib {

namespace {

// ---- equality with the default (the rules are in the class comment) ----------------------

enum class Kind { Nothing, Boolean, Integer, Floating, String, Font, Object, Other };

Kind kindOf(const QVariant& value)
{
    if (!value.isValid())
        return Kind::Nothing;
    const QMetaType type = value.metaType();
    if (type.flags().testFlag(QMetaType::PointerToQObject))
        return Kind::Object;
    if (type.flags().testFlag(QMetaType::IsEnumeration))
        return Kind::Integer;
    switch (type.id()) {
    case QMetaType::Bool:
        return Kind::Boolean;
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return Kind::Integer;
    case QMetaType::Float:
    case QMetaType::Double:
        return Kind::Floating;
    case QMetaType::QString:
        return Kind::String;
    case QMetaType::QFont:
        return Kind::Font;
    default:
        return Kind::Other;
    }
}

bool isUnsigned(const QMetaType& type)
{
    switch (type.id()) {
    case QMetaType::UChar:
    case QMetaType::UShort:
    case QMetaType::UInt:
    case QMetaType::ULong:
    case QMetaType::ULongLong:
        return true;
    default:
        return false;
    }
}

// Read in its own signedness, so that std::cmp_equal can compare across widths exactly.
std::variant<qint64, quint64> integerOf(const QVariant& value)
{
    if (isUnsigned(value.metaType()))
        return quint64(value.toULongLong());
    return qint64(value.toLongLong());
}

QObject* objectOf(const QVariant& value)
{
    return kindOf(value) == Kind::Object ? qvariant_cast<QObject*>(value) : nullptr;
}

bool sameValue(const QVariant& a, const QVariant& b)
{
    const Kind kindA = kindOf(a);
    const Kind kindB = kindOf(b);
    const auto numeric = [](Kind kind) {
        return kind == Kind::Integer || kind == Kind::Floating;
    };
    if (numeric(kindA) && numeric(kindB)) {
        if (kindA == Kind::Integer && kindB == Kind::Integer) {
            return std::visit([](auto x, auto y) { return std::cmp_equal(x, y); }, integerOf(a),
                              integerOf(b));
        }
        return a.toDouble() == b.toDouble();
    }
    // "None" and a null object are both "no object".
    const auto nothing = [](Kind kind, const QVariant& value) {
        return kind == Kind::Nothing || (kind == Kind::Object && !objectOf(value));
    };
    if (nothing(kindA, a) && nothing(kindB, b))
        return true;
    if (kindA != kindB)
        return false;
    switch (kindA) {
    case Kind::Boolean:
        return a.toBool() == b.toBool();
    case Kind::String:
        return a.toString() == b.toString();
    case Kind::Font:
        return qvariant_cast<QFont>(a) == qvariant_cast<QFont>(b);
    case Kind::Object:
        return objectOf(a) == objectOf(b);
    default:
        return a == b;
    }
}

// ---- JSON types ------------------------------------------------------------------------

struct JsonType
{
    QLatin1StringView name;
    QMetaType::Type metaType;
};

constexpr JsonType JsonTypes[] = {
    {QLatin1StringView("bool"), QMetaType::Bool},
    {QLatin1StringView("int16"), QMetaType::Short},
    {QLatin1StringView("int32"), QMetaType::Int},
    {QLatin1StringView("uint32"), QMetaType::UInt},
    {QLatin1StringView("float"), QMetaType::Float},
    {QLatin1StringView("double"), QMetaType::Double},
    {QLatin1StringView("string"), QMetaType::QString},
    {QLatin1StringView("font"), QMetaType::QFont},
};

const JsonType* jsonTypeOf(int metaTypeId)
{
    const auto* const found =
        std::find_if(std::begin(JsonTypes), std::end(JsonTypes),
                     [&](const JsonType& t) { return t.metaType == metaTypeId; });
    return found == std::end(JsonTypes) ? nullptr : found;
}

const JsonType* jsonTypeNamed(const QString& name)
{
    const auto* const found = std::find_if(std::begin(JsonTypes), std::end(JsonTypes),
                                           [&](const JsonType& t) { return t.name == name; });
    return found == std::end(JsonTypes) ? nullptr : found;
}

// A number as its shortest text that reads back exactly.
QString exactNumber(double value)
{
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

// Where QFont::toString puts the numbers it rounds, counted in the fields after the family.
constexpr qsizetype PointSizeField = 0;
constexpr qsizetype LetterSpacingField = 11;
constexpr qsizetype WordSpacingField = 12;

// QFont::toString with its size and spacings exact: it writes them with six significant
// digits, so a font of 12.3456789 points would come back as 12.3457. The layout stays the one
// QFont::fromString reads.
QString exactFontText(const QFont& font)
{
    const QString text = font.toString();
    const qsizetype familyEnd = font.family().size();
    if (!text.startsWith(font.family() + u','))
        return text;
    QStringList fields = text.mid(familyEnd + 1).split(u',');
    if (fields.size() <= WordSpacingField)
        return text;
    fields[PointSizeField] = exactNumber(font.pointSizeF());
    fields[LetterSpacingField] = exactNumber(font.letterSpacing());
    fields[WordSpacingField] = exactNumber(font.wordSpacing());
    return text.left(familyEnd + 1) + fields.join(u',');
}

// The JSON value of a stored value, or nothing when its type has no JSON form.
std::optional<QJsonValue> toJsonValue(const QVariant& value)
{
    if (!value.isValid() || !jsonTypeOf(value.metaType().id()))
        return std::nullopt;
    switch (value.metaType().id()) {
    case QMetaType::Bool:
        return QJsonValue(value.toBool());
    case QMetaType::Short:
    case QMetaType::Int:
    case QMetaType::UInt:
        // Every 32-bit integer is exact in JSON's double, 0x8000000F included.
        return QJsonValue(value.toLongLong());
    case QMetaType::Float:
    case QMetaType::Double:
        if (!std::isfinite(value.toDouble()))
            return std::nullopt;
        return QJsonValue(value.toDouble());
    case QMetaType::QString:
        return QJsonValue(value.toString());
    default: // QMetaType::QFont
        return QJsonValue(exactFontText(qvariant_cast<QFont>(value)));
    }
}

// An integral JSON number within [low, high], or nothing.
std::optional<qint64> integralIn(const QJsonValue& json, qint64 low, qint64 high)
{
    if (!json.isDouble())
        return std::nullopt;
    const double number = json.toDouble();
    if (number != std::trunc(number) || number < double(low) || number > double(high))
        return std::nullopt;
    return qint64(number);
}

// The value of `json` in `type`, or a null QVariant when it does not fit.
QVariant fromJsonValue(const QJsonValue& json, QMetaType::Type type)
{
    switch (type) {
    case QMetaType::Bool:
        return json.isBool() ? QVariant(json.toBool()) : QVariant();
    case QMetaType::Short: {
        const auto number = integralIn(json, std::numeric_limits<qint16>::min(),
                                       std::numeric_limits<qint16>::max());
        return number ? QVariant::fromValue(qint16(*number)) : QVariant();
    }
    case QMetaType::Int: {
        const auto number = integralIn(json, std::numeric_limits<qint32>::min(),
                                       std::numeric_limits<qint32>::max());
        return number ? QVariant::fromValue(qint32(*number)) : QVariant();
    }
    case QMetaType::UInt: {
        const auto number = integralIn(json, 0, std::numeric_limits<quint32>::max());
        return number ? QVariant::fromValue(quint32(*number)) : QVariant();
    }
    // Beyond a float's range a number would turn infinite, which the saved form cannot hold.
    case QMetaType::Float: {
        const auto number = float(json.toDouble());
        return json.isDouble() && std::isfinite(number) ? QVariant::fromValue(number) : QVariant();
    }
    case QMetaType::Double:
        return json.isDouble() && std::isfinite(json.toDouble()) ? QVariant(json.toDouble())
                                                                 : QVariant();
    case QMetaType::QString:
        return json.isString() ? QVariant(json.toString()) : QVariant();
    default: { // QMetaType::QFont
        QFont font;
        if (!json.isString() || !font.fromString(json.toString()))
            return QVariant();
        return QVariant::fromValue(font);
    }
    }
}

} // namespace

QVariant MemoryPropertyBag::ReadProperty(const QString& name, const QVariant& defaultValue) const
{
    const Entry* const entry = find(name);
    return entry ? valueOf(*entry) : defaultValue;
}

void MemoryPropertyBag::WriteProperty(const QString& name, const QVariant& value,
                                      const QVariant& defaultValue)
{
    if (!sameValue(value, defaultValue)) {
        store(name, value);
        return;
    }
    // erase, not a null value: "not stored" must read back as the reader's default.
    std::erase_if(m_entries, [&](const Entry& entry) { return entry.name == name; });
}

bool MemoryPropertyBag::contains(const QString& name) const
{
    return find(name) != nullptr;
}

QStringList MemoryPropertyBag::names() const
{
    QStringList result;
    result.reserve(qsizetype(m_entries.size()));
    for (const Entry& entry : m_entries)
        result.append(entry.name);
    return result;
}

QVariant MemoryPropertyBag::value(const QString& name) const
{
    const Entry* const entry = find(name);
    return entry ? valueOf(*entry) : QVariant();
}

QVariant MemoryPropertyBag::valueOf(const Entry& entry)
{
    if (kindOf(entry.value) == Kind::Object && !entry.object)
        return QVariant(entry.value.metaType()); // a null pointer of the stored type
    return entry.value;
}

void MemoryPropertyBag::clear()
{
    m_entries.clear();
}

QByteArray MemoryPropertyBag::toJson(QStringList* leftOut) const
{
    QJsonArray properties;
    for (const Entry& entry : m_entries) {
        const QVariant stored = valueOf(entry);
        const std::optional<QJsonValue> json = toJsonValue(stored);
        if (!json) {
            if (leftOut)
                leftOut->append(entry.name);
            continue;
        }
        properties.append(QJsonObject{
            {QStringLiteral("name"), entry.name},
            {QStringLiteral("type"), QString(jsonTypeOf(stored.metaType().id())->name)},
            {QStringLiteral("value"), *json},
        });
    }
    const QJsonObject root{{QStringLiteral("properties"), properties}};
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

MemoryPropertyBag MemoryPropertyBag::fromJson(const QByteArray& json, QString* error)
{
    const auto fail = [&](const QString& message) {
        if (error)
            *error = message;
        return MemoryPropertyBag();
    };

    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        return fail(QStringLiteral("Not valid JSON: %1 at offset %2")
                        .arg(parseError.errorString())
                        .arg(parseError.offset));
    }
    const QJsonValue properties = document.object().value(QStringLiteral("properties"));
    if (!document.isObject() || !properties.isArray())
        return fail(QStringLiteral("Not a property bag: expected {\"properties\": [...]}"));

    MemoryPropertyBag bag;
    const QJsonArray array = properties.toArray();
    for (qsizetype i = 0; i < array.size(); ++i) {
        const QString where = QStringLiteral("properties[%1]").arg(i);
        if (!array.at(i).isObject())
            return fail(where + QStringLiteral(": not an object"));
        const QJsonObject property = array.at(i).toObject();
        const QString name = property.value(QStringLiteral("name")).toString();
        if (name.isEmpty())
            return fail(where + QStringLiteral(": missing \"name\""));
        const QString typeName = property.value(QStringLiteral("type")).toString();
        const JsonType* const type = jsonTypeNamed(typeName);
        if (!type) {
            return fail(
                QStringLiteral("%1 \"%2\": unknown type \"%3\"").arg(where, name, typeName));
        }
        const QVariant value =
            fromJsonValue(property.value(QStringLiteral("value")), type->metaType);
        if (!value.isValid()) {
            return fail(QStringLiteral("%1 \"%2\": the value is not a valid %3")
                            .arg(where, name, typeName));
        }
        bag.store(name, value);
    }
    if (error)
        error->clear();
    return bag;
}

const MemoryPropertyBag::Entry* MemoryPropertyBag::find(const QString& name) const
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry& entry) { return entry.name == name; });
    return found == m_entries.end() ? nullptr : &*found;
}

MemoryPropertyBag::Entry* MemoryPropertyBag::find(const QString& name)
{
    return const_cast<Entry*>(std::as_const(*this).find(name));
}

void MemoryPropertyBag::store(const QString& name, const QVariant& value)
{
    Entry entry{name, value, objectOf(value)};
    if (Entry* const found = find(name))
        *found = std::move(entry);
    else
        m_entries.push_back(std::move(entry));
}

} // namespace VemoGridLib
