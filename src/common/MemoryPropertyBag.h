// SPDX-License-Identifier: MIT
// The library's property bag: saved properties kept in memory, in write order, with a JSON form
// (what a container saves with a form and hands back when the form is loaded).
#pragma once

#include <VemoGridLib/PropertyBag.h>
#include <VemoGridLib/VemoGridLibExport.h>

#include <QByteArray>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <vector>

namespace VemoGridLib {

/// A `PropertyBag` held in memory: what a container saves with a form. Properties
/// keep the order in which they were first written; names are compared case-sensitively.
///
/// "Equal to the default" is decided by value, not by QVariant type, so a control may give a
/// write default in the saved format's type (VemoGrid writes `FocusRect` with a 16-bit default)
/// while its getter returns another width:
/// - integers of any width and signedness (and enumerations) are equal when their values are
///   (so `qint16(1)` equals `int(1)`, and `quint32(0x8000000F)` does not equal the negative
///   `int` with the same bits); an integer and a floating-point value compare as numbers;
/// - booleans only equal booleans, strings only strings (no VB-style coercion), fonts compare
///   with `QFont::operator==`, objects (pointers to QObject) by identity;
/// - a null QVariant ("none") equals a null QVariant and a null object pointer, so an object
///   property whose getter returns nullptr is not stored against a "none" default;
/// - any other type compares with `QVariant::operator==`.
class VEMOGRIDLIB_EXPORT MemoryPropertyBag : public PropertyBag
{
public:
    /// An empty bag, as a new control's container gives it.
    MemoryPropertyBag() = default;

    /// Reads with a default: the value stored under `name`, else `defaultValue`.
    QVariant ReadProperty(const QString& name, const QVariant& defaultValue) const override;
    /// Writes with a default: a value equal to `defaultValue` (see the class comment)
    /// is not stored and removes what `name` held; any other value is stored, replacing an
    /// earlier value of `name` in its place or else appended after the last property.
    void WriteProperty(const QString& name, const QVariant& value,
                       const QVariant& defaultValue) override;

    /// Whether a value is stored under `name`.
    bool contains(const QString& name) const;
    /// The stored names in write order.
    QStringList names() const;
    /// The value stored under `name`, or a null QVariant. An object value whose
    /// QObject has been destroyed since it was written reads as a null pointer of its type, so
    /// a bag never hands out a dangling object.
    QVariant value(const QString& name) const;
    /// Removes every property.
    void clear();

    /// The saved form: the properties in write order as indented UTF-8 JSON,
    /// `{"properties": [{"name": "Cols", "type": "int32", "value": 5}, ...]}`. Types and their
    /// JSON values: "bool" (true/false), "int16", "int32", "uint32" (OLE colours, exact) as
    /// integral numbers, "float" and "double" as numbers, "string" as a string, "font" as the
    /// string of `QFont::toString()` with its point size and spacings written exactly. Values of
    /// any other type — objects such as a "DataSource" model, pictures, null values, non-finite
    /// numbers — cannot be saved and are left out; their names are appended to `leftOut` when it is
    /// given.
    QByteArray toJson(QStringList* leftOut = nullptr) const;
    /// Restores from `toJson`'s form, with every value back in its own type and the
    /// order kept (a name given twice keeps its first place and its last value). Anything
    /// malformed — not JSON, a missing field, an unknown type, a value that does not fit its
    /// type such as an "int16" of 40000 or a "float" of -1e39 — gives an empty bag and a
    /// description in `error` (when given); on success `error` is cleared.
    static MemoryPropertyBag fromJson(const QByteArray& json, QString* error = nullptr);

private:
    struct Entry
    {
        QString name;
        QVariant value;
        /// Watches an object value, so that its destruction is noticed.
        QPointer<QObject> object;
    };

    const Entry* find(const QString& name) const;
    Entry* find(const QString& name);
    /// An entry's value as `value` gives it.
    static QVariant valueOf(const Entry& entry);
    /// Stores `value` under `name` in place or at the end, whatever its default.
    void store(const QString& name, const QVariant& value);

    std::vector<Entry> m_entries;
};

} // namespace VemoGridLib
