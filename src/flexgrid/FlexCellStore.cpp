// SPDX-License-Identifier: MIT
#include "flexgrid/FlexCellStore_p.h"

#include "flexgrid/FlexEnums.h"

#include "common/VemoError.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <limits>
#include <new>

namespace VemoGridLib {

namespace {

/// Where a cell's text lives: `len` UTF-16 units at arena position `pos`, or, for texts too
/// long for an arena page, `pos` indexes the list of long texts (len == LongText).
struct CellRef
{
    std::uint32_t pos = 0;
    std::uint32_t len = 0;
};

constexpr std::uint32_t LongText = 0xFFFFFFFFu;
constexpr int PageBits = 20;
constexpr std::uint32_t PageUnits = 1u << PageBits;
constexpr std::uint32_t MaxPages = 1u << (32 - PageBits);
/// Texts above this length get their own QString: they would waste the tail of a page.
constexpr std::uint32_t MaxArenaText = 4096;

struct ColumnStore
{
    std::vector<CellRef> texts;
    /// Look ids by storage row: low and high 16 bits, each allocated only once needed.
    std::vector<std::uint16_t> lookLow;
    std::vector<std::uint16_t> lookHigh;
    int width = -1;
    int alignment = 9;
    int alignmentFixed = -1;
    bool merge = false;
    qint32 data = 0;
};

/// One remembered look change: applying `field = value` to look `from` gives look `to`.
struct LookTransition
{
    std::uint32_t from = 0;
    std::uint32_t to = 0;
    double value = 0;
    FlexCellStore::FormatField field = FlexCellStore::FormatField::BackColor;
    bool valid = false;
};

/// A remembered `changeFormat`: look `from` became `to` under the change named `key`.
struct KeyedTransition
{
    std::uint32_t from = 0;
    std::uint32_t to = 0;
    quint64 key = 0;
    bool valid = false;
};

[[noreturn]] void raiseOutOfMemory()
{
    throw VemoError(Flex::flexerrOutOfMemory, QStringLiteral("Out of memory"));
}

template <typename T>
std::size_t heapBytes(const std::vector<T>& v)
{
    return v.capacity() * sizeof(T);
}

} // namespace

struct FlexCellStore::Private
{
    // Rows: visual position → storage row. Storage rows are never moved, only re-pointed.
    std::vector<std::uint32_t> order;
    std::vector<std::uint32_t> freeRows;
    std::uint32_t storageRows = 0;
    std::vector<std::int32_t> heights;
    std::vector<std::int32_t> rowData;
    std::vector<std::uint8_t> mergeFlags;
    std::vector<ColumnStore> columns;

    // Text arena.
    std::vector<std::unique_ptr<char16_t[]>> pages;
    std::uint32_t usedInLastPage = PageUnits;
    std::uint64_t liveUnits = 0;
    std::uint64_t garbageUnits = 0;
    std::vector<QString> longTexts;
    std::vector<std::uint32_t> freeLongTexts;

    // Looks: id 0 is the default look.
    std::vector<FlexCellFormat> looks{FlexCellFormat()};
    QHash<FlexCellFormat, std::uint32_t> lookIds;
    std::size_t lookCollectThreshold = 65536;
    /// Bumped whenever collectLooks renumbers the looks.
    std::uint64_t lookGeneration = 0;
    std::array<LookTransition, 256> transitions{};
    std::array<KeyedTransition, 64> keyedTransitions{};

    std::uint32_t storageRow(int row) const { return order[std::size_t(row)]; }

    // ---- texts -------------------------------------------------------------------------
    QStringView view(CellRef ref) const
    {
        if (ref.len == LongText)
            return longTexts[ref.pos];
        if (ref.len == 0)
            return {};
        return QStringView(pages[ref.pos >> PageBits].get() + (ref.pos & (PageUnits - 1)),
                           qsizetype(ref.len));
    }

    void release(CellRef ref)
    {
        if (ref.len == LongText) {
            longTexts[ref.pos] = QString();
            freeLongTexts.push_back(ref.pos);
        } else if (ref.len != 0) {
            // Skipped for an empty cell, the usual one to fill: the two counters were just
            // written one by one, and reading them back as a pair stalls.
            liveUnits -= ref.len;
            garbageUnits += ref.len;
        }
    }

    CellRef storeLongText(QStringView text)
    {
        if (!freeLongTexts.empty()) {
            const std::uint32_t index = freeLongTexts.back();
            freeLongTexts.pop_back();
            longTexts[index] = text.toString();
            return {index, LongText};
        }
        longTexts.push_back(text.toString());
        return {std::uint32_t(longTexts.size() - 1), LongText};
    }

    CellRef storeInArena(QStringView text)
    {
        const auto len = std::uint32_t(text.size());
        if (usedInLastPage + len > PageUnits) {
            if (pages.size() == MaxPages)
                raiseOutOfMemory();
            pages.push_back(std::make_unique_for_overwrite<char16_t[]>(PageUnits));
            usedInLastPage = 0;
        }
        const auto pos = std::uint32_t((pages.size() - 1) << PageBits) | usedInLastPage;
        std::memcpy(pages.back().get() + usedInLastPage, text.utf16(), len * sizeof(char16_t));
        usedInLastPage += len;
        liveUnits += len;
        return {pos, len};
    }

    CellRef store(QStringView text)
    {
        if (text.isEmpty())
            return {};
        if (std::uint64_t(text.size()) > MaxArenaText)
            return storeLongText(text);
        return storeInArena(text);
    }

    /// Puts `text` in the cell `ref`; false when the cell held it already.
    bool replaceText(CellRef& ref, QStringView text)
    {
        if (view(ref) == text)
            return false;
        const CellRef stored = store(text);
        release(ref);
        ref = stored;
        return true;
    }

    /// Copies every live text into fresh pages once most of the arena is overwritten text.
    void collectGarbageIfWorthIt()
    {
        if (garbageUnits < PageUnits || garbageUnits < liveUnits)
            return;
        std::vector<std::unique_ptr<char16_t[]>> oldPages;
        oldPages.swap(pages);
        usedInLastPage = PageUnits;
        liveUnits = 0;
        garbageUnits = 0;
        const auto readOld = [&oldPages](CellRef ref) {
            return QStringView(oldPages[ref.pos >> PageBits].get() + (ref.pos & (PageUnits - 1)),
                               qsizetype(ref.len));
        };
        for (ColumnStore& column : columns) {
            for (CellRef& ref : column.texts) {
                if (ref.len != 0 && ref.len != LongText)
                    ref = storeInArena(readOld(ref));
            }
        }
    }

    void resetArena()
    {
        pages.clear();
        usedInLastPage = PageUnits;
        liveUnits = 0;
        garbageUnits = 0;
        longTexts.clear();
        freeLongTexts.clear();
    }

    // ---- looks -------------------------------------------------------------------------
    std::uint32_t lookId(const ColumnStore& column, std::uint32_t s) const
    {
        const std::uint32_t low = column.lookLow.empty() ? 0 : column.lookLow[s];
        const std::uint32_t high = column.lookHigh.empty() ? 0 : column.lookHigh[s];
        return low | high << 16;
    }

    void setLookId(ColumnStore& column, std::uint32_t s, std::uint32_t id)
    {
        if (column.lookLow.empty()) {
            if (id == 0)
                return;
            column.lookLow.assign(storageRows, 0);
        }
        column.lookLow[s] = std::uint16_t(id);
        if (column.lookHigh.empty()) {
            if (id >> 16 == 0)
                return;
            column.lookHigh.assign(storageRows, 0);
        }
        column.lookHigh[s] = std::uint16_t(id >> 16);
    }

    std::uint32_t intern(const FlexCellFormat& look)
    {
        if (look.isDefault())
            return 0;
        const auto found = lookIds.constFind(look);
        if (found != lookIds.cend())
            return *found;
        if (looks.size() >= lookCollectThreshold)
            collectLooks();
        if (looks.size() > 0xFFFFFFFEu)
            raiseOutOfMemory();
        looks.push_back(look);
        const auto id = std::uint32_t(looks.size() - 1);
        lookIds.insert(look, id);
        return id;
    }

    /// Drops the looks no cell uses any more and renumbers the rest.
    void collectLooks()
    {
        std::vector<std::uint32_t> remap(looks.size(), 0);
        for (const ColumnStore& column : columns) {
            if (column.lookLow.empty())
                continue;
            for (std::uint32_t s = 0; s < storageRows; ++s)
                remap[lookId(column, s)] = 1;
        }
        std::vector<FlexCellFormat> kept{FlexCellFormat()};
        lookIds.clear();
        for (std::size_t id = 1; id < looks.size(); ++id) {
            if (remap[id] == 0)
                continue;
            remap[id] = std::uint32_t(kept.size());
            lookIds.insert(looks[id], remap[id]);
            kept.push_back(std::move(looks[id]));
        }
        looks.swap(kept);
        for (ColumnStore& column : columns) {
            if (column.lookLow.empty())
                continue;
            for (std::uint32_t s = 0; s < storageRows; ++s)
                setLookId(column, s, remap[lookId(column, s)]);
        }
        transitions.fill(LookTransition());
        keyedTransitions.fill(KeyedTransition());
        ++lookGeneration;
        lookCollectThreshold = std::max<std::size_t>(65536, looks.size() * 2);
    }

    static void applyField(FlexCellFormat& look, FormatField field, double value)
    {
        switch (field) {
        case FormatField::BackColor:
            look.backColor = OleColor(value);
            break;
        case FormatField::ForeColor:
            look.foreColor = OleColor(value);
            break;
        case FormatField::Alignment:
            look.alignment = std::int8_t(value);
            break;
        case FormatField::PictureAlignment:
            look.pictureAlignment = std::int8_t(value);
            break;
        case FormatField::TextStyle:
            look.textStyle = std::int8_t(value);
            break;
        case FormatField::Bold:
            look.bold = std::int8_t(value);
            break;
        case FormatField::Italic:
            look.italic = std::int8_t(value);
            break;
        case FormatField::Underline:
            look.underline = std::int8_t(value);
            break;
        case FormatField::FontSize:
            look.fontSize = float(value);
            break;
        case FormatField::FontWidth:
            look.fontWidth = float(value);
            break;
        }
    }

    LookTransition& transitionSlot(std::uint32_t from, FormatField field, double value)
    {
        // The splitmix64 finaliser: colours differing in a few high bits (a banding pass's two
        // colours) must not share a slot, or they would evict each other on every cell.
        std::uint64_t mixed =
            std::bit_cast<std::uint64_t>(value) ^ (std::uint64_t(from) << 8 | std::uint64_t(field));
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9ull;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBull;
        mixed ^= mixed >> 31;
        return transitions[mixed & (transitions.size() - 1)];
    }

    std::uint32_t changedLook(std::uint32_t from, FormatField field, double value)
    {
        const LookTransition& slot = transitionSlot(from, field, value);
        if (slot.valid && slot.from == from && slot.field == field && slot.value == value)
            return slot.to;
        return buildChangedLook(from, field, value);
    }

    /// The cache miss of changedLook, kept out of line so that the hit, which runs once per cell
    /// of every pass, stays a few compares.
    Q_NEVER_INLINE std::uint32_t buildChangedLook(std::uint32_t from, FormatField field,
                                                  double value)
    {
        return internChanged(
            from, [&](FlexCellFormat& look) { applyField(look, field, value); },
            [&](std::uint32_t to) {
                transitionSlot(from, field, value) = {from, to, value, field, true};
            });
    }

    /// Look `from` after `change`, interned; `remember(to)` caches the step unless interning
    /// renumbered the looks (which makes `from` stale and empties the caches anyway).
    template <typename Change, typename Remember>
    std::uint32_t internChanged(std::uint32_t from, Change&& change, Remember&& remember)
    {
        FlexCellFormat look = looks[from];
        change(look);
        const std::uint64_t generation = lookGeneration;
        const std::uint32_t to = intern(look);
        if (generation == lookGeneration)
            remember(to);
        return to;
    }

    // ---- storage rows --------------------------------------------------------------------
    /// Makes room for `size` elements, doubling as resize would, so that the resizes that
    /// follow cannot fail half way.
    template <typename T>
    static void reserveFor(std::vector<T>& values, std::size_t size)
    {
        if (values.capacity() < size)
            values.reserve(std::max(size, 2 * values.capacity()));
    }

    /// Every allocation comes first: a std::bad_alloc leaves the storage as it was.
    void growStorage(std::uint32_t count)
    {
        const std::size_t size = std::size_t(storageRows) + count;
        reserveFor(heights, size);
        reserveFor(rowData, size);
        reserveFor(mergeFlags, size);
        for (ColumnStore& column : columns) {
            reserveFor(column.texts, size);
            if (!column.lookLow.empty())
                reserveFor(column.lookLow, size);
            if (!column.lookHigh.empty())
                reserveFor(column.lookHigh, size);
        }
        storageRows += count;
        heights.resize(storageRows, -1);
        rowData.resize(storageRows, 0);
        mergeFlags.resize(storageRows, 0);
        for (ColumnStore& column : columns) {
            column.texts.resize(storageRows);
            if (!column.lookLow.empty())
                column.lookLow.resize(storageRows, 0);
            if (!column.lookHigh.empty())
                column.lookHigh.resize(storageRows, 0);
        }
    }

    std::uint32_t allocateRow()
    {
        if (!freeRows.empty()) {
            const std::uint32_t s = freeRows.back();
            freeRows.pop_back();
            return s;
        }
        // Rows added one by one (AddItem) grow the storage in blocks, the spare rows waiting
        // in freeRows, lowest first: one resize of every vector per block, not per row.
        const std::uint32_t first = storageRows;
        const std::uint32_t block = std::max<std::uint32_t>(16, storageRows / 8);
        growStorage(block);
        for (std::uint32_t s = first + block - 1; s > first; --s)
            freeRows.push_back(s);
        return first;
    }

    void appendRows(std::uint32_t count)
    {
        const std::uint32_t reused = std::min<std::uint32_t>(count, freeRows.size());
        reserveFor(order, order.size() + count);
        order.insert(order.end(), freeRows.end() - reused, freeRows.end());
        freeRows.resize(freeRows.size() - reused);
        const std::uint32_t first = storageRows;
        growStorage(count - reused);
        for (std::uint32_t s = first; s < storageRows; ++s)
            order.push_back(s);
    }

    /// Empties a storage row and puts it on the free list.
    void freeRow(std::uint32_t s)
    {
        for (ColumnStore& column : columns) {
            release(column.texts[s]);
            column.texts[s] = {};
            setLookId(column, s, 0);
        }
        heights[s] = -1;
        rowData[s] = 0;
        mergeFlags[s] = 0;
        freeRows.push_back(s);
    }

    /// Renumbers storage rows in visual order once most of them are free, so a grid that
    /// shrank gives its memory back.
    void compactRowsIfWorthIt()
    {
        if (freeRows.size() < 1024 || freeRows.size() < order.size())
            return;
        const auto rows = std::uint32_t(order.size());
        const auto gather = [&](auto& values) {
            std::remove_reference_t<decltype(values)> kept(rows);
            for (std::uint32_t r = 0; r < rows; ++r)
                kept[r] = values[order[r]];
            values.swap(kept);
        };
        gather(heights);
        gather(rowData);
        gather(mergeFlags);
        for (ColumnStore& column : columns) {
            gather(column.texts);
            if (!column.lookLow.empty())
                gather(column.lookLow);
            if (!column.lookHigh.empty())
                gather(column.lookHigh);
        }
        for (std::uint32_t r = 0; r < rows; ++r)
            order[r] = r;
        storageRows = rows;
        freeRows.clear();
        freeRows.shrink_to_fit();
    }
};

FlexCellStore::FlexCellStore()
    : d(std::make_unique<Private>())
{}

FlexCellStore::~FlexCellStore() = default;

bool FlexCellStore::fits(qint64 rows, qint64 cols)
{
    return cols <= MaxCols && std::max<qint64>(rows, 1) * std::max<qint64>(cols, 1) <= MaxCells;
}

void FlexCellStore::setRowCount(int rows)
{
    Q_ASSERT(rows >= 0);
    if (!fits(rows, m_cols))
        raiseOutOfMemory();
    const auto wanted = std::size_t(rows);
    if (wanted > d->order.size()) {
        try {
            d->appendRows(std::uint32_t(wanted - d->order.size()));
        } catch (const std::bad_alloc&) {
            raiseOutOfMemory();
        }
        m_rows = rows;
        return;
    }
    m_rows = rows;
    while (d->order.size() > wanted) {
        d->freeRow(d->order.back());
        d->order.pop_back();
    }
    d->compactRowsIfWorthIt();
    d->collectGarbageIfWorthIt();
}

void FlexCellStore::setColCount(int cols)
{
    Q_ASSERT(cols >= 0);
    if (!fits(m_rows, cols))
        raiseOutOfMemory();
    const auto wanted = std::size_t(cols);
    const std::size_t had = d->columns.size();
    try {
        while (d->columns.size() < wanted) {
            ColumnStore column;
            column.texts.resize(d->storageRows);
            d->columns.push_back(std::move(column));
        }
    } catch (const std::bad_alloc&) {
        d->columns.erase(d->columns.begin() + std::ptrdiff_t(had), d->columns.end());
        raiseOutOfMemory();
    }
    m_cols = cols;
    while (d->columns.size() > wanted) {
        for (const CellRef ref : d->columns.back().texts)
            d->release(ref);
        d->columns.pop_back();
    }
    d->collectGarbageIfWorthIt();
}

QString FlexCellStore::text(int row, int col) const
{
    return textView(row, col).toString();
}

QStringView FlexCellStore::textView(int row, int col) const
{
    Q_ASSERT(row >= 0 && row < rowCount() && col >= 0 && col < colCount());
    return d->view(d->columns[std::size_t(col)].texts[d->storageRow(row)]);
}

void FlexCellStore::setText(int row, int col, QStringView text)
{
    Q_ASSERT(row >= 0 && row < rowCount() && col >= 0 && col < colCount());
    if (d->replaceText(d->columns[std::size_t(col)].texts[d->storageRow(row)], text))
        d->collectGarbageIfWorthIt();
}

void FlexCellStore::setRowTexts(int row, QStringView fields)
{
    Q_ASSERT(row >= 0 && row < rowCount());
    const std::uint32_t s = d->storageRow(row);
    const QChar* from = fields.begin();
    for (ColumnStore& column : d->columns) {
        const QChar* const to = std::find(from, fields.end(), QChar(u'\t'));
        d->replaceText(column.texts[s], QStringView(from, to));
        if (to == fields.end())
            break;
        from = to + 1;
    }
    d->collectGarbageIfWorthIt();
}

const FlexCellFormat& FlexCellStore::format(int row, int col) const
{
    Q_ASSERT(row >= 0 && row < rowCount() && col >= 0 && col < colCount());
    return d->looks[d->lookId(d->columns[std::size_t(col)], d->storageRow(row))];
}

bool FlexCellStore::hasFormat(int row, int col) const
{
    Q_ASSERT(row >= 0 && row < rowCount() && col >= 0 && col < colCount());
    return d->lookId(d->columns[std::size_t(col)], d->storageRow(row)) != 0;
}

void FlexCellStore::setFormat(int row, int col, const FlexCellFormat& format)
{
    Q_ASSERT(row >= 0 && row < rowCount() && col >= 0 && col < colCount());
    const std::uint32_t id = d->intern(format);
    d->setLookId(d->columns[std::size_t(col)], d->storageRow(row), id);
}

void FlexCellStore::setFormatValue(int row, int col, FormatField field, double value)
{
    Q_ASSERT(row >= 0 && row < rowCount() && col >= 0 && col < colCount());
    ColumnStore& column = d->columns[std::size_t(col)];
    const std::uint32_t s = d->storageRow(row);
    const std::uint32_t to = d->changedLook(d->lookId(column, s), field, value);
    d->setLookId(column, s, to);
}

void FlexCellStore::changeFormat(int row, int col, quint64 key,
                                 const std::function<void(FlexCellFormat&)>& change)
{
    Q_ASSERT(row >= 0 && row < rowCount() && col >= 0 && col < colCount());
    ColumnStore& column = d->columns[std::size_t(col)];
    const std::uint32_t s = d->storageRow(row);
    const std::uint32_t from = d->lookId(column, s);
    // Keys (pixmap cache keys) differ in their low bits: the multiplication carries those to
    // the top bits that pick the slot.
    KeyedTransition& slot =
        d->keyedTransitions[((key ^ (quint64(from) << 40)) * 0x9E3779B97F4A7C15ull) >> 58];
    if (slot.valid && slot.from == from && slot.key == key) {
        d->setLookId(column, s, slot.to);
        return;
    }
    const std::uint32_t to = d->internChanged(from, change, [&](std::uint32_t changed) {
        slot = {from, changed, key, true};
    });
    d->setLookId(column, s, to);
}

void FlexCellStore::setFormatValueBanded(int col, int firstRow, int lastRow, FormatField field,
                                         double evenValue, double oddValue, int evenRow)
{
    Q_ASSERT(col >= 0 && col < colCount() && firstRow >= 0 && lastRow < rowCount());
    ColumnStore& column = d->columns[std::size_t(col)];
    if (firstRow == lastRow) {
        // One row (a row added): nothing to remember between rows.
        const std::uint32_t s = d->storageRow(firstRow);
        const double value = ((firstRow - evenRow) & 1) != 0 ? oddValue : evenValue;
        d->setLookId(column, s, d->changedLook(d->lookId(column, s), field, value));
        return;
    }
    // A column's cells mostly share a look, so each band remembers its last change.
    struct Change
    {
        std::uint32_t from = std::numeric_limits<std::uint32_t>::max();
        std::uint32_t to = 0;
    };
    std::array<Change, 2> last;
    std::uint64_t generation = d->lookGeneration;
    for (int r = firstRow; r <= lastRow; ++r) {
        const bool odd = ((r - evenRow) & 1) != 0;
        const std::uint32_t s = d->storageRow(r);
        const std::uint32_t from = d->lookId(column, s);
        Change& change = last[odd ? 1 : 0];
        if (from != change.from || generation != d->lookGeneration) {
            generation = d->lookGeneration;
            last = {};
            change = {from, d->changedLook(from, field, odd ? oddValue : evenValue)};
            // A renumbering inside changedLook makes `from` stale: remember nothing then.
            if (generation != d->lookGeneration)
                change = {};
        }
        d->setLookId(column, s, change.to);
    }
}

int FlexCellStore::rowHeight(int row) const
{
    return d->heights[d->storageRow(row)];
}

void FlexCellStore::setRowHeight(int row, int twips)
{
    d->heights[d->storageRow(row)] = twips;
}

qint32 FlexCellStore::rowData(int row) const
{
    return d->rowData[d->storageRow(row)];
}

void FlexCellStore::setRowData(int row, qint32 value)
{
    d->rowData[d->storageRow(row)] = value;
}

bool FlexCellStore::mergeRow(int row) const
{
    return d->mergeFlags[d->storageRow(row)] != 0;
}

void FlexCellStore::setMergeRow(int row, bool merge)
{
    d->mergeFlags[d->storageRow(row)] = merge ? 1 : 0;
}

int FlexCellStore::colWidth(int col) const
{
    return d->columns[std::size_t(col)].width;
}

void FlexCellStore::setColWidth(int col, int twips)
{
    d->columns[std::size_t(col)].width = twips;
}

int FlexCellStore::colAlignment(int col) const
{
    return d->columns[std::size_t(col)].alignment;
}

void FlexCellStore::setColAlignment(int col, int alignment)
{
    d->columns[std::size_t(col)].alignment = alignment;
}

int FlexCellStore::colAlignmentFixed(int col) const
{
    return d->columns[std::size_t(col)].alignmentFixed;
}

void FlexCellStore::setColAlignmentFixed(int col, int alignment)
{
    d->columns[std::size_t(col)].alignmentFixed = alignment;
}

bool FlexCellStore::mergeCol(int col) const
{
    return d->columns[std::size_t(col)].merge;
}

void FlexCellStore::setMergeCol(int col, bool merge)
{
    d->columns[std::size_t(col)].merge = merge;
}

qint32 FlexCellStore::colData(int col) const
{
    return d->columns[std::size_t(col)].data;
}

void FlexCellStore::setColData(int col, qint32 value)
{
    d->columns[std::size_t(col)].data = value;
}

void FlexCellStore::insertRow(int row)
{
    Q_ASSERT(row >= 0 && row <= rowCount());
    if (!fits(qint64(m_rows) + 1, m_cols))
        raiseOutOfMemory();
    try {
        Private::reserveFor(d->order, d->order.size() + 1);
        const std::uint32_t s = d->allocateRow();
        d->order.insert(d->order.begin() + row, s);
    } catch (const std::bad_alloc&) {
        raiseOutOfMemory();
    }
    ++m_rows;
}

void FlexCellStore::removeRow(int row)
{
    Q_ASSERT(row >= 0 && row < rowCount());
    const std::uint32_t s = d->storageRow(row);
    d->order.erase(d->order.begin() + row);
    --m_rows;
    d->freeRow(s);
    d->compactRowsIfWorthIt();
    d->collectGarbageIfWorthIt();
}

void FlexCellStore::moveRow(int from, int to)
{
    Q_ASSERT(from >= 0 && from < rowCount() && to >= 0 && to < rowCount());
    const auto first = d->order.begin();
    if (from < to)
        std::rotate(first + from, first + from + 1, first + to + 1);
    else if (from > to)
        std::rotate(first + to, first + from, first + from + 1);
}

void FlexCellStore::moveCol(int from, int to)
{
    Q_ASSERT(from >= 0 && from < colCount() && to >= 0 && to < colCount());
    const auto first = d->columns.begin();
    if (from < to)
        std::rotate(first + from, first + from + 1, first + to + 1);
    else if (from > to)
        std::rotate(first + to, first + from, first + from + 1);
}

void FlexCellStore::reorderRows(int first, const std::vector<std::uint32_t>& order)
{
    Q_ASSERT(first >= 0 && std::size_t(first) + order.size() <= d->order.size());
    std::vector<std::uint32_t> moved(order.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        moved[i] = d->order[std::size_t(first) + order[i]];
    std::copy(moved.begin(), moved.end(), d->order.begin() + first);
}

void FlexCellStore::clearCells()
{
    for (ColumnStore& column : d->columns) {
        std::fill(column.texts.begin(), column.texts.end(), CellRef());
        column.lookLow = {};
        column.lookHigh = {};
    }
    d->resetArena();
    d->looks.resize(1);
    d->lookIds.clear();
    d->transitions.fill(LookTransition());
    d->keyedTransitions.fill(KeyedTransition());
}

std::size_t FlexCellStore::bytesUsed() const
{
    std::size_t bytes = heapBytes(d->order) + heapBytes(d->freeRows) + heapBytes(d->heights) +
                        heapBytes(d->rowData) + heapBytes(d->mergeFlags) + heapBytes(d->columns) +
                        heapBytes(d->pages) + d->pages.size() * PageUnits * sizeof(char16_t) +
                        heapBytes(d->longTexts) + heapBytes(d->freeLongTexts) +
                        heapBytes(d->looks) + d->lookIds.capacity() * sizeof(FlexCellFormat);
    for (const QString& text : d->longTexts)
        bytes += std::size_t(text.capacity()) * sizeof(QChar);
    for (const ColumnStore& column : d->columns)
        bytes += heapBytes(column.texts) + heapBytes(column.lookLow) + heapBytes(column.lookHigh);
    return bytes;
}

} // namespace VemoGridLib
