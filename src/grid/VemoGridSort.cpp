// SPDX-License-Identifier: MIT
// VemoGrid's sorting by a column's SortType, header-click sorting and the sort arrows.
#include "grid/VemoGrid_p.h"


#include "vb/VbFormat.h"

#include <QDate>
#include <QScopeGuard>

#include <array>

namespace VemoGridLib {

namespace {

/// The hosted grid's `Sort` setting for a plain sort type: (SortType − 1) × 2 + 1 ascending,
/// + 2 descending.
int plainSortSetting(VemoSortTypeConstants type, bool ascending)
{
    return (int(type) - 1) * 2 + (ascending ? 1 : 2);
}

/// Reads `count` digits at `at` (advancing it); -1 when there are fewer.
int readDigits(QStringView text, qsizetype& at, int minCount, int maxCount)
{
    int value = 0;
    int count = 0;
    while (count < maxCount && at < text.size() && text[at].isDigit() &&
           text[at].unicode() < 0x80) {
        value = value * 10 + (text[at].unicode() - u'0');
        ++at;
        ++count;
    }
    return count >= minCount ? value : -1;
}

bool readSeparator(QStringView text, qsizetype& at, QChar separator)
{
    if (at >= text.size() || text[at] != separator)
        return false;
    ++at;
    return true;
}

using DateKey = std::array<char16_t, 14>;

/// Writes `value` as `width` decimal digits at `at`.
void putDigits(DateKey& key, std::size_t at, int value, int width)
{
    for (int i = width - 1; i >= 0; --i, value /= 10)
        key[at + std::size_t(i)] = char16_t(u'0' + value % 10);
}

/// The key of an ISO-style date ("2024-01-05", "2024/1/5", optionally " 13:45" or " 13:45:07"),
/// the date texts grids mostly hold, read without the general date parser; false for any other
/// text.
bool isoDateKey(QStringView text, DateKey& key)
{
    qsizetype at = 0;
    const int year = readDigits(text, at, 4, 4);
    if (year < 1000 || at >= text.size())
        return false;
    const QChar separator = text[at];
    if (separator != u'-' && separator != u'/')
        return false;
    ++at;
    const int month = readDigits(text, at, 1, 2);
    if (month < 0 || !readSeparator(text, at, separator))
        return false;
    const int day = readDigits(text, at, 1, 2);
    if (day < 0 || !QDate::isValid(year, month, day))
        return false;
    int hour = 0;
    int minute = 0;
    int second = 0;
    if (at < text.size()) {
        if (!readSeparator(text, at, u' '))
            return false;
        hour = readDigits(text, at, 1, 2);
        if (hour < 0 || hour > 23 || !readSeparator(text, at, u':'))
            return false;
        minute = readDigits(text, at, 2, 2);
        if (minute < 0 || minute > 59)
            return false;
        if (at < text.size()) {
            if (!readSeparator(text, at, u':'))
                return false;
            second = readDigits(text, at, 2, 2);
            if (second < 0 || second > 59)
                return false;
        }
        if (at != text.size())
            return false;
    }
    putDigits(key, 0, year, 4);
    putDigits(key, 4, month, 2);
    putDigits(key, 6, day, 2);
    putDigits(key, 8, hour, 2);
    putDigits(key, 10, minute, 2);
    putDigits(key, 12, second, 2);
    return true;
}

/// The key of any other text, by the general date formatting.
QString formattedDateKey(const QString& text)
{
    static const QString keyFormat = QStringLiteral("yyyymmddHhNnSs");
    return vb::Format(text, keyFormat);
}

} // namespace

QString VemoGridPrivate::dateSortKey(const QString& text)
{
    if (DateKey key; isoDateKey(text, key))
        return QString(reinterpret_cast<const QChar*>(key.data()), qsizetype(key.size()));
    return formattedDateKey(text);
}

void VemoGridPrivate::sortByKeyColumn(int col, int setting, KeyKind kind)
{
    const int keyCol = flex->Cols();
    flex->setCols(keyCol + 1);
    const auto removeKeys =
        qScopeGuard([this, keyCol] { ignoringErrors([&] { flex->setCols(keyCol); }); });
    flex->setColWidth(keyCol, 0);
    // The keys are written quietly: the column is hidden and gone before anything draws.
    // A view into the grid must not be written back into it (a write may move the texts), so a
    // copied key goes through one reused buffer.
    QString copy;
    for (int r = flex->FixedRows(); r < flex->Rows(); ++r) {
        const QStringView text = cells.text(r, col);
        if (kind == KeyKind::Currency) {
            // Format with no format string returns a text unchanged, so the key is the text itself.
            copy.setUnicode(text.data(), text.size());
            cells.setText(r, keyCol, copy);
        } else if (DateKey key; isoDateKey(text, key)) {
            cells.setText(r, keyCol, QStringView(key.data(), qsizetype(key.size())));
        } else {
            cells.setText(r, keyCol, formattedDateKey(text.toString()));
        }
    }
    flex->setCol(keyCol);
    flex->setColSel(keyCol);
    flex->setSort(setting);
}

void VemoGridPrivate::sort(int col, VemoGridSortMode direction)
{
    if (col < flex->FixedCols())
        return;
    const VemoSortTypeConstants type = column(col)->SortType();
    // The rows are about to move under the open editor: its text goes into its cell first.
    commitEdit();

    // A sort ends with Redraw on, whatever it was before. The guards run while an error may be
    // on its way out, so they never raise one themselves.
    const auto redrawAfterwards =
        qScopeGuard([this] { ignoringErrors([this] { flex->setRedraw(true); }); });
    const BulkPass pass(*this, qint64(flex->Rows()) * flex->Cols());
    const int savedRow = flex->Row();
    const int savedCol = flex->Col();
    const auto finish = qScopeGuard([this, savedRow, savedCol] {
        ignoringErrors([&] { flex->setRow(savedRow); });
        ignoringErrors([&] { flex->setCol(savedCol); });
        ignoringErrors([this] { followMarker(); });
        ignoringErrors([this] { colourRows(-1); });
    });
    flex->setRow(0);

    if (lastSortedCol >= 0 && lastSortedCol != col) {
        setPicture(0, lastSortedCol, QPixmap());
        ascending = true;
    } else if (lastSortedCol == col) {
        ascending = !ascending;
    } else {
        ascending = true;
    }
    if (direction == SortAscending)
        ascending = true;
    else if (direction == SortDescending)
        ascending = false;

    flex->setCol(col);
    flex->setColSel(col);
    lastSortedCol = col;
    flex->setCellPictureAlignment(Flex::flexAlignRightCenter);
    if (type == VemoSortNone)
        return;
    flex->setCellPicture(ascending ? imgUP : imgDown);

    switch (type) {
    case VemoSortDateTime:
        sortByKeyColumn(col,
                        ascending ? Flex::flexSortStringNoCaseAscending
                                  : Flex::flexSortStringNoCaseDescending,
                        KeyKind::Date);
        break;
    case VemoSortCurrency:
        sortByKeyColumn(
            col, ascending ? Flex::flexSortNumericAscending : Flex::flexSortNumericDescending,
            KeyKind::Currency);
        break;
    default:
        flex->setSort(plainSortSetting(type, ascending));
    }
}

void VemoGridPrivate::followMarker()
{
    if (markedRow < flex->FixedRows())
        return;
    // The marker picture moved with its row; `Selected` follows it there.
    const qint64 marker = imgMarker.cacheKey();
    // The marker sits in column 0: a grid without columns has no marked row.
    for (int r = flex->FixedRows(); flex->Cols() > 0 && r < flex->Rows(); ++r) {
        if (cells.pictureKey(r, 0) == marker) {
            markedRow = r;
            return;
        }
    }
    markedRow = 0;
}

void VemoGridPrivate::removeSortMark()
{
    if (lastSortedCol < 0)
        return;
    setPicture(0, lastSortedCol, QPixmap());
    lastSortedCol = -1;
}

void VemoGrid::Sort(int Col, VemoGridSortMode SortDirection)
{
    d->sort(Col, SortDirection);
}

void VemoGrid::SortOnHeaderClick(bool SortOn, VemoSortTypeConstants newValue)
{
    Q_UNUSED(newValue);
    d->sortable = SortOn;
}

void VemoGrid::SortOnCol(int Col, VemoSortTypeConstants SortType)
{
    Q_UNUSED(Col);
    Q_UNUSED(SortType);
    d->suppressEvents = true;
}

bool VemoGrid::Sortable() const
{
    return d->sortable;
}

void VemoGrid::setSortable(bool sortable)
{
    d->sortable = sortable;
    d->changed(QStringLiteral("SortAble"));
}

} // namespace VemoGridLib
