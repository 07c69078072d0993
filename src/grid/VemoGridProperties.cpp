// SPDX-License-Identifier: MIT
// VemoGrid's saved properties.
#include "grid/VemoGrid_p.h"

#include "common/PropertyBag.h"
#include "common/VemoError.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QFont>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace VemoGridLib {

namespace {

// ---- a read value coerced to its target's type ---------------------------------------------
// As VB coerces a Variant on assignment: numbers, numeric text and booleans (True is −1) give
// numbers, fractions round half to even; anything else is Type mismatch (13), a number beyond
// the target's range Overflow (6). Either skips the property.

qint64 wholeNumber(const QVariant& value)
{
    const auto rounded = [](double number) {
        // Bounds checked in double, where both limits are exact powers of two.
        if (!std::isfinite(number) || number < -0x1p63 || number >= 0x1p63)
            throw VemoError::overflow();
        return qint64(std::nearbyint(number)); // the default rounding mode: half to even
    };
    const QMetaType type = value.metaType();
    if (type.flags().testFlag(QMetaType::IsEnumeration))
        return value.toLongLong();
    switch (type.id()) {
    case QMetaType::Bool:
        return value.toBool() ? -1 : 0;
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong:
        return value.toLongLong();
    case QMetaType::ULong:
    case QMetaType::ULongLong:
        if (value.toULongLong() > quint64(std::numeric_limits<qint64>::max()))
            throw VemoError::overflow();
        return value.toLongLong();
    case QMetaType::Float:
    case QMetaType::Double:
        return rounded(value.toDouble());
    case QMetaType::QString: {
        bool ok = false;
        const double number = value.toString().trimmed().toDouble(&ok);
        if (!ok)
            throw VemoError::typeMismatch();
        return rounded(number);
    }
    default:
        throw VemoError::typeMismatch();
    }
}

bool toBoolean(const QVariant& value)
{
    if (value.metaType().id() == QMetaType::QString) {
        const QString text = value.toString().trimmed();
        if (text.compare(QLatin1StringView("True"), Qt::CaseInsensitive) == 0)
            return true;
        if (text.compare(QLatin1StringView("False"), Qt::CaseInsensitive) == 0)
            return false;
    }
    return wholeNumber(value) != 0;
}

QString toText(const QVariant& value)
{
    switch (value.metaType().id()) {
    case QMetaType::QString:
        return value.toString();
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    default:
        return QString::number(wholeNumber(value));
    }
}

QFont toFont(const QVariant& value)
{
    if (value.metaType().id() == QMetaType::QFont)
        return qvariant_cast<QFont>(value);
    QFont font;
    if (value.metaType().id() != QMetaType::QString || !font.fromString(value.toString()))
        throw VemoError::typeMismatch();
    return font;
}

// "None" is no model; an object that is not a model is a mismatch.
QAbstractItemModel* toModel(const QVariant& value)
{
    if (!value.isValid())
        return nullptr;
    if (!value.metaType().flags().testFlag(QMetaType::PointerToQObject))
        throw VemoError::typeMismatch();
    QObject* const object = qvariant_cast<QObject*>(value);
    auto* const model = qobject_cast<QAbstractItemModel*>(object);
    if (object && !model)
        throw VemoError::typeMismatch();
    return model;
}

template <typename T>
T coerce(const QVariant& value)
{
    if constexpr (std::is_same_v<T, bool>) {
        return toBoolean(value);
    } else if constexpr (std::is_same_v<T, OleColor>) {
        // A colour saved as a signed 32-bit Long keeps its bits: −2147483633 is &H8000000F.
        const qint64 number = wholeNumber(value);
        if (number < std::numeric_limits<qint32>::min() ||
            number > std::numeric_limits<quint32>::max())
            throw VemoError::overflow();
        return OleColor(quint32(number));
    } else if constexpr (std::is_integral_v<T> || std::is_enum_v<T>) {
        using Number = typename std::conditional_t<std::is_enum_v<T>, std::underlying_type<T>,
                                                   std::type_identity<T>>::type;
        const qint64 number = wholeNumber(value);
        if (!std::in_range<Number>(number))
            throw VemoError::overflow();
        return T(number);
    } else if constexpr (std::is_same_v<T, QString>) {
        return toText(value);
    } else if constexpr (std::is_same_v<T, QFont>) {
        return toFont(value);
    } else {
        static_assert(std::is_same_v<T, QAbstractItemModel*>, "no coercion to this type");
        return toModel(value);
    }
}

/// The value a getter returns, as it is written; an enumeration is saved as its 32-bit number.
template <typename T>
QVariant saved(const T& value)
{
    if constexpr (std::is_enum_v<T>)
        return QVariant(int(value));
    else
        return QVariant::fromValue(value);
}

// ---- where each property goes ------------------------------------------------------------

struct Access
{
    void (*apply)(VemoGridPrivate& grid, const QVariant& value);
    QVariant (*value)(const VemoGridPrivate& grid);
};

template <typename Setter>
struct ArgumentOf;
template <typename Class, typename Argument>
struct ArgumentOf<void (Class::*)(Argument)>
{
    using Type = std::remove_cvref_t<Argument>;
};

/// A member of the control itself (VemoGrid, or QWidget for the font the hosted grid follows).
template <auto Setter, auto Getter>
constexpr Access control()
{
    return {[](VemoGridPrivate& grid, const QVariant& value) {
                (grid.q->*Setter)(coerce<typename ArgumentOf<decltype(Setter)>::Type>(value));
            },
            [](const VemoGridPrivate& grid) {
                return saved((std::as_const(*grid.q).*Getter)());
            }};
}

/// A member of the hosted grid `MSHFlexGrid1`.
template <auto Setter, auto Getter>
constexpr Access hosted()
{
    return {[](VemoGridPrivate& grid, const QVariant& value) {
                (grid.flex->*Setter)(coerce<typename ArgumentOf<decltype(Setter)>::Type>(value));
            },
            [](const VemoGridPrivate& grid) {
                return saved((std::as_const(*grid.flex).*Getter)());
            }};
}

/// A field of the grid, stored as VB stores its member variable: no setter side effects (no
/// recolouring, no `PropertyChanged`, no "Operator ERROR" for an empty `AutoCalcOPE`).
template <auto Member>
constexpr Access field()
{
    using Type = std::remove_cvref_t<decltype(std::declval<VemoGridPrivate&>().*Member)>;
    return {
        [](VemoGridPrivate& grid, const QVariant& value) { grid.*Member = coerce<Type>(value); },
        [](const VemoGridPrivate& grid) {
            return saved(grid.*Member);
        }};
}

// ---- the saved properties: reading list and writing order ---------------------------------
// Defaults carry the saved format's types (boolean, 16-bit qint16, 32-bit int, colour quint32,
// string); written values carry their getter's type (hosted members are int, `ScrollNum`
// short). The bag compares a value with its default by value, so `FocusRect` 1 (int) equals
// its 16-bit write default 1 and is not stored.

/// The read default "the container's ambient font" of "Font" and "FontFixed".
struct AmbientFont
{};

struct SavedProperty
{
    const char* name;
    std::variant<QVariant, AmbientFont> readDefault;
    /// A null QVariant is "none": an object equal to it (null) is not stored, a font always is.
    QVariant writeDefault;
    Access access;
};

QVariant boolean(bool value)
{
    return QVariant(value);
}
QVariant int16(qint16 value)
{
    return QVariant::fromValue(value);
}
QVariant int32(qint32 value)
{
    return QVariant::fromValue(value);
}
QVariant colour(OleColor value)
{
    return QVariant::fromValue(value);
}
QVariant emptyString()
{
    return QVariant(QString());
}
const QVariant none;

using P = VemoGridPrivate;

/// Every saved property with its read and write defaults, in reading order.
const std::vector<SavedProperty>& savedProperties()
{
    static const std::vector<SavedProperty> table = {
        {"Enabled", boolean(true), boolean(true),
         control<&QWidget::setEnabled, &VemoGrid::Enabled>()},
        {"Appearance", int32(1), int32(1),
         control<&VemoGrid::setAppearance, &VemoGrid::Appearance>()},
        {"BorderStyle", int32(1), int32(1),
         control<&VemoGrid::setBorderStyle, &VemoGrid::BorderStyle>()},
        {"BackColor1", colour(0xFFFFFF), colour(0xFFFFFF), field<&P::backColor1>()},
        {"BackColor2", colour(0xBFFFFF), colour(0xBFFFFF), field<&P::backColor2>()},
        {"ReadOnlyColor", colour(0xDFDFC0), colour(0xDFDFC0), field<&P::readOnlyColor>()},
        {"ForeColor", colour(vbWindowText), colour(vbWindowText),
         hosted<&FlexGrid::setForeColor, &FlexGrid::ForeColor>()},
        {"BackColorBkg", colour(vbButtonFace), colour(vbButtonFace),
         hosted<&FlexGrid::setBackColorBkg, &FlexGrid::BackColorBkg>()},
        {"BackColorFixed", colour(vbButtonFace), colour(vbButtonFace),
         hosted<&FlexGrid::setBackColorFixed, &FlexGrid::BackColorFixed>()},
        // The three colour drifts between reading and writing are part of the format.
        {"BackColorSel", colour(vbHighlight), colour(0xCEB2AD),
         hosted<&FlexGrid::setBackColorSel, &FlexGrid::BackColorSel>()},
        {"ForeColorSel", colour(0), colour(vbHighlightText),
         hosted<&FlexGrid::setForeColorSel, &FlexGrid::ForeColorSel>()},
        {"ForeColorFixed", colour(vbMenuText), colour(0xFFFFFF),
         hosted<&FlexGrid::setForeColorFixed, &FlexGrid::ForeColorFixed>()},
        {"GridColor", colour(0xC0C0C0), colour(0xC0C0C0),
         hosted<&FlexGrid::setGridColor, &FlexGrid::GridColor>()},
        {"GridColorFixed", colour(0xC0C0C0), colour(0xC0C0C0),
         hosted<&FlexGrid::setGridColorFixed, &FlexGrid::GridColorFixed>()},
        {"GridLines", int16(1), int16(1), hosted<&FlexGrid::setGridLines, &FlexGrid::GridLines>()},
        {"GridLinesFixed", int16(2), int16(2),
         hosted<&FlexGrid::setGridLinesFixed, &FlexGrid::GridLinesFixed>()},
        {"GridLineWidth", int16(1), int16(1),
         hosted<&FlexGrid::setGridLineWidth, &FlexGrid::GridLineWidth>()},
        {"CellAppearance", int32(0), int32(0), field<&P::cellAppearance>()},
        {"CellBorderStyle", int32(1), int32(1), field<&P::cellBorderStyle>()},
        // The sizes go to the hosted grid; the grid's own setters follow after the list.
        {"Cols", int16(2), int16(2), hosted<&FlexGrid::setCols, &FlexGrid::Cols>()},
        {"Rows", int16(2), int16(2), hosted<&FlexGrid::setRows, &FlexGrid::Rows>()},
        {"FixedCols", int16(1), int16(1), hosted<&FlexGrid::setFixedCols, &FlexGrid::FixedCols>()},
        {"FixedRows", int16(1), int16(1), hosted<&FlexGrid::setFixedRows, &FlexGrid::FixedRows>()},
        // The hosted grid follows the control's font; VemoGrid::Font reads the hosted one.
        {"Font", AmbientFont{}, none, control<&QWidget::setFont, &VemoGrid::Font>()},
        {"FontFixed", AmbientFont{}, none, hosted<&FlexGrid::setFontFixed, &FlexGrid::FontFixed>()},
        {"DataSource", none, none, control<&VemoGrid::setDataSource, &VemoGrid::DataSource>()},
        {"FocusRect", int32(1), int16(1), hosted<&FlexGrid::setFocusRect, &FlexGrid::FocusRect>()},
        {"FormatString", emptyString(), emptyString(),
         hosted<&FlexGrid::setFormatString, &FlexGrid::FormatString>()},
        {"MergeCells", int32(0), int32(0),
         hosted<&FlexGrid::setMergeCells, &FlexGrid::MergeCells>()},
        {"SelectionMode", int16(0), int16(0),
         hosted<&FlexGrid::setSelectionMode, &FlexGrid::SelectionMode>()},
        {"WordWrap", boolean(false), boolean(false),
         hosted<&FlexGrid::setWordWrap, &FlexGrid::WordWrap>()},
        {"TextStyle", int16(0), int16(0), hosted<&FlexGrid::setTextStyle, &FlexGrid::TextStyle>()},
        {"TextStyleFixed", int16(0), int16(0),
         hosted<&FlexGrid::setTextStyleFixed, &FlexGrid::TextStyleFixed>()},
        {"ScrollBars", int16(3), int16(3),
         hosted<&FlexGrid::setScrollBars, &FlexGrid::ScrollBars>()},
        {"ScrollTrack", boolean(false), boolean(false),
         hosted<&FlexGrid::setScrollTrack, &FlexGrid::ScrollTrack>()},
        {"HighLight", int32(1), int32(1), hosted<&FlexGrid::setHighLight, &FlexGrid::HighLight>()},
        {"AllowBigSelection", boolean(true), boolean(true),
         hosted<&FlexGrid::setAllowBigSelection, &FlexGrid::AllowBigSelection>()},
        {"AllowUserResizing", int32(0), int16(0),
         hosted<&FlexGrid::setAllowUserResizing, &FlexGrid::AllowUserResizing>()},
        {"EditEnable", boolean(true), boolean(true), field<&P::editEnable>()},
        {"Sortable", boolean(true), boolean(true), field<&P::sortable>()},
        {"NullLine", boolean(true), boolean(true), field<&P::nullLine>()},
        {"AutoGrow", boolean(true), boolean(true), field<&P::autoGrow>()},
        {"AssignCellColorSel", boolean(false), boolean(false), field<&P::assignCellColorSel>()},
        {"CellBackColorSel", colour(0xFFFFFF), colour(0xFFFFFF), field<&P::cellBackColorSel>()},
        {"CellForeColorSel", colour(0), colour(0), field<&P::cellForeColorSel>()},
        {"AutoCalc1", int16(0), int16(0), field<&P::autoCalc1>()},
        {"AutoCalc2", int16(0), int16(0), field<&P::autoCalc2>()},
        {"AutoCalcRES", int16(0), int16(0), field<&P::autoCalcRES>()},
        {"AutoCalcOPE", emptyString(), emptyString(), field<&P::autoCalcOPE>()},
        {"ScrollType", int32(0), int32(0), field<&P::scrollType>()},
        {"ScrollNum", int16(3), int16(3), field<&P::scrollNum>()},
        {"LunarCalendar", boolean(false), boolean(false), field<&P::lunarCalendar>()},
    };
    return table;
}

/// The writing order: the same 52 names, four of them moved from their reading-order places.
// clang-format off
constexpr std::array<std::string_view, 52> WriteOrder = {
    "Enabled", "Appearance", "BorderStyle", "BackColor1", "BackColor2", "ReadOnlyColor",
    "ForeColor", "BackColorBkg", "BackColorFixed", "BackColorSel", "ForeColorSel",
    "ForeColorFixed", "GridColor", "GridColorFixed", "GridLines", "GridLinesFixed",
    "GridLineWidth", "CellAppearance", "CellBorderStyle",
    "Font", "FontFixed", "DataSource",                      // read after the four sizes
    "FocusRect", "FormatString", "MergeCells", "SelectionMode", "WordWrap", "TextStyle",
    "TextStyleFixed", "ScrollBars", "ScrollTrack",
    "Cols", "FixedRows", "FixedCols", "Rows",               // read before "Font", Rows second
    "HighLight",
    "AllowUserResizing", "AllowBigSelection",               // read the other way round
    "EditEnable", "Sortable", "NullLine", "AutoGrow", "AssignCellColorSel", "CellBackColorSel",
    "CellForeColorSel", "AutoCalc1", "AutoCalc2", "AutoCalcRES", "AutoCalcOPE",
    "LunarCalendar",                                        // read after the two scroll ones
    "ScrollType", "ScrollNum",
};
// clang-format on

const SavedProperty& savedProperty(std::string_view name)
{
    const std::vector<SavedProperty>& table = savedProperties();
    const auto found = std::find_if(table.begin(), table.end(),
                                    [&](const SavedProperty& p) { return p.name == name; });
    Q_ASSERT(found != table.end());
    return *found;
}

QVariant readDefaultOf(const SavedProperty& property, const QWidget& control)
{
    if (const QVariant* const fixed = std::get_if<QVariant>(&property.readDefault))
        return *fixed;
    // The ambient Font is the parent widget's; a top-level control has the
    // application's.
    const QWidget* const container = control.parentWidget();
    return QVariant::fromValue(container ? container->font() : QApplication::font());
}

} // namespace

void VemoGrid::InitProperties()
{
    ReSetData();
}

void VemoGrid::ReadProperties(const PropertyBag& bag)
{
    // Step 1: each value goes to its target at once, so later rows see the earlier ones (the
    // hosted sizes before the fixed counts, everything before "FormatString").
    for (const SavedProperty& property : savedProperties()) {
        ignoringErrors([&] {
            const QVariant value = bag.ReadProperty(QString::fromLatin1(property.name),
                                                    readDefaultOf(property, *this));
            property.access.apply(*d, value);
        });
    }
    // Step 2: through the grid's own setters, so the Column array follows the hosted Cols (user
    // mode) and the rows get their colours and fixed counts of at least 1.
    ignoringErrors([&] { setCols(d->flex->Cols()); });
    ignoringErrors([&] { setRows(d->flex->Rows()); });
}

void VemoGrid::WriteProperties(PropertyBag& bag) const
{
    for (const std::string_view name : WriteOrder) {
        const SavedProperty& property = savedProperty(name);
        ignoringErrors([&] {
            bag.WriteProperty(QString::fromLatin1(property.name), property.access.value(*d),
                              property.writeDefault);
        });
    }
}

} // namespace VemoGridLib
