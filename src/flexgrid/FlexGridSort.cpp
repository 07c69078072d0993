// SPDX-License-Identifier: MIT
// FlexGrid's Sort: keys are read once per row, the row order is
// computed with a stable sort, and the store then re-points its row handles; no cell content
// moves.
#include "flexgrid/FlexGrid_p.h"

#include "vb/VbConversion.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <numeric>
#include <optional>

namespace VemoGridLib {

namespace {

double numberOrZero(QStringView text, vb::VbLocale locale)
{
    return vb::NumericValue(text, locale).value_or(0);
}

int sign(double difference)
{
    return difference < 0 ? -1 : (difference > 0 ? 1 : 0);
}

int compareNoCase(QStringView a, QStringView b)
{
    return a.compare(b, Qt::CaseInsensitive);
}

/// Alphabetical first; for texts equal but for case, lower case before upper case.
int compareCase(QStringView a, QStringView b)
{
    const int folded = a.compare(b, Qt::CaseInsensitive);
    return folded != 0 ? folded : -a.compare(b, Qt::CaseSensitive);
}

/// The generic sort's key. The pairwise rule (numbers when both are numeric, else text) is
/// not transitive ("9" < "10" < "1a" < "9"), so it is made a total order: empty texts first,
/// then numeric texts by value, then the other texts by exact code-unit order.
struct GenericKey
{
    int rank = 0;
    double number = 0;
    QStringView text;
};

GenericKey genericKey(QStringView text, vb::VbLocale locale)
{
    if (text.isEmpty())
        return {0, 0, text};
    if (const std::optional<double> number = vb::NumericValue(text, locale))
        return {1, *number, text};
    return {2, 0, text};
}

int compareGeneric(const GenericKey& a, const GenericKey& b)
{
    if (a.rank != b.rank)
        return a.rank < b.rank ? -1 : 1;
    if (a.rank == 1)
        return sign(a.number - b.number);
    return a.text.compare(b.text, Qt::CaseSensitive);
}

bool isAscending(int setting)
{
    return setting % 2 == 1;
}

/// Sorts `entries` (each with a `row`) stably by `compare3` and returns the rows in order.
template <typename Entry, typename Compare3>
std::vector<std::uint32_t> sortedRows(std::vector<Entry>& entries, bool ascending,
                                      Compare3 compare3)
{
    std::stable_sort(entries.begin(), entries.end(), [&](const Entry& a, const Entry& b) {
        const int result = compare3(a, b);
        return ascending ? result < 0 : result > 0;
    });
    std::vector<std::uint32_t> order(entries.size());
    std::transform(entries.begin(), entries.end(), order.begin(),
                   [](const Entry& e) { return e.row; });
    return order;
}

/// The common case — one numeric key — as a sort of (key, row) pairs, close to a plain sort of
/// doubles.
std::vector<std::uint32_t> numericOrder(const FlexCellStore& store, int first, int count,
                                        int keyCol, bool ascending, vb::VbLocale locale)
{
    struct Entry
    {
        double key;
        std::uint32_t row;
    };
    std::vector<Entry> entries(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        entries[std::size_t(i)] = {numberOrZero(store.textView(first + i, keyCol), locale),
                                   std::uint32_t(i)};
    return sortedRows(entries, ascending,
                      [](const Entry& a, const Entry& b) { return sign(a.key - b.key); });
}

/// A text key's first sixteen code units (case-folded for the folded comparisons), packed so
/// that comparing two packs orders as comparing the texts does wherever the packs differ. A
/// surrogate folds together with its partner, so a folded key with one among those units is not
/// `exact`, and only the full comparison decides for it.
struct PackedText
{
    // Sixteen units hold a whole VemoGrid date key ("yyyymmddHhNnSs", 14 digits), so equal
    // dates need no full comparison.
    static constexpr qsizetype Units = 16;

    std::array<quint64, 4> words{};
    quint32 length = 0;
    bool exact = true;

    /// The whole text is in the words.
    bool complete() const { return length <= Units; }
};

PackedText packText(QStringView text, bool fold)
{
    PackedText packed;
    packed.length = quint32(std::min<qsizetype>(text.size(), std::numeric_limits<quint32>::max()));
    for (qsizetype i = 0; i < std::min(text.size(), PackedText::Units); ++i) {
        const QChar c = text[i];
        if (fold && c.isSurrogate())
            packed.exact = false;
        const quint64 unit = fold ? c.toCaseFolded().unicode() : c.unicode();
        packed.words[std::size_t(i / 4)] |= unit << (16 * (3 - i % 4));
    }
    return packed;
}

/// Orders two packed texts where the packs decide: −1, 1, 0 for texts that are equal (only when
/// `equalIsFinal`: the texts' comparison has nothing after the packed one), or nothing when the
/// full comparison must decide.
std::optional<int> comparePacked(const PackedText& a, const PackedText& b, bool equalIsFinal)
{
    if (!a.exact || !b.exact)
        return std::nullopt;
    for (std::size_t i = 0; i < a.words.size(); ++i) {
        if (a.words[i] != b.words[i])
            return a.words[i] < b.words[i] ? -1 : 1;
    }
    // Equal packs of two complete texts: the shorter one (padded with zeros) comes first.
    if (!a.complete() || !b.complete())
        return std::nullopt;
    if (a.length != b.length)
        return a.length < b.length ? -1 : 1;
    return equalIsFinal ? std::optional<int>(0) : std::nullopt;
}

/// The common case of a text sort — one key column — as a sort of packed prefixes; only texts
/// that the packs cannot tell apart are compared in full. The order is exactly `compare`'s
/// (whose first criterion is the folded comparison), so the sort stays stable.
template <typename Compare>
std::vector<std::uint32_t> textOrder(const FlexCellStore& store, int first, int count, int keyCol,
                                     bool ascending, Compare compare, bool foldedTieIsFinal)
{
    struct Entry
    {
        PackedText packed;
        std::uint32_t row;
    };
    std::vector<QStringView> texts(static_cast<std::size_t>(count));
    std::vector<Entry> entries(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        texts[std::size_t(i)] = store.textView(first + i, keyCol);
        entries[std::size_t(i)] = {packText(texts[std::size_t(i)], true), std::uint32_t(i)};
    }
    return sortedRows(entries, ascending, [&](const Entry& a, const Entry& b) {
        if (const std::optional<int> packed = comparePacked(a.packed, b.packed, foldedTieIsFinal))
            return *packed;
        return compare(texts[a.row], texts[b.row]);
    });
}

/// The generic sort on one key column: ranks and numbers as `compareGeneric`, the texts by
/// packed prefixes of their code units.
std::vector<std::uint32_t> genericOrder(const FlexCellStore& store, int first, int count,
                                        int keyCol, bool ascending, vb::VbLocale locale)
{
    struct Entry
    {
        GenericKey key;
        PackedText packed;
        std::uint32_t row;
    };
    std::vector<Entry> entries(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const GenericKey key = genericKey(store.textView(first + i, keyCol), locale);
        entries[std::size_t(i)] = {key, key.rank == 2 ? packText(key.text, false) : PackedText(),
                                   std::uint32_t(i)};
    }
    return sortedRows(entries, ascending, [](const Entry& a, const Entry& b) {
        if (a.key.rank == 2 && b.key.rank == 2) {
            if (const std::optional<int> packed = comparePacked(a.packed, b.packed, true))
                return *packed;
        }
        return compareGeneric(a.key, b.key);
    });
}

/// Any setting over any number of key columns: keys are prepared per column, then rows are
/// compared column by column, leftmost first.
template <typename Key, typename MakeKey, typename CompareKeys>
std::vector<std::uint32_t> keyedOrder(const FlexCellStore& store, int first, int count,
                                      int firstKey, int lastKey, bool ascending, MakeKey makeKey,
                                      CompareKeys compareKeys)
{
    const auto keyCount = std::size_t(lastKey - firstKey + 1);
    std::vector<Key> keys(std::size_t(count) * keyCount);
    for (int i = 0; i < count; ++i) {
        for (std::size_t k = 0; k < keyCount; ++k)
            keys[std::size_t(i) * keyCount + k] =
                makeKey(store.textView(first + i, firstKey + int(k)));
    }
    std::vector<std::uint32_t> order(static_cast<std::size_t>(count));
    std::iota(order.begin(), order.end(), 0u);
    const auto compareRows = [&](std::uint32_t a, std::uint32_t b) {
        for (std::size_t k = 0; k < keyCount; ++k) {
            const int result = compareKeys(keys[a * keyCount + k], keys[b * keyCount + k]);
            if (result != 0)
                return result;
        }
        return 0;
    };
    std::stable_sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
        const int result = compareRows(a, b);
        return ascending ? result < 0 : result > 0;
    });
    return order;
}

} // namespace

void FlexGridPrivate::sort(int setting)
{
    if (setting == Flex::flexSortNone)
        return;
    const int rows = store.rowCount();
    int first = std::min(row, rowSel);
    int last = std::max(row, rowSel);
    if (row == rowSel) {
        first = fixedRows;
        last = rows - 1;
    }
    const int firstKey = std::min(col, colSel);
    const int lastKey = std::max(col, colSel);
    if (first < 0 || last >= rows || last <= first || firstKey < 0 || lastKey >= store.colCount())
        return;
    const int count = last - first + 1;
    const bool ascending = isAscending(setting);
    const auto identity = [](QStringView text) {
        return text;
    };
    // One locale for the whole sort: every key is read the same way.
    const vb::VbLocale locale = vb::userLocale();
    const auto number = [locale](QStringView text) {
        return numberOrZero(text, locale);
    };
    const auto generic = [locale](QStringView text) {
        return genericKey(text, locale);
    };

    std::vector<std::uint32_t> order;
    switch (setting) {
    case Flex::flexSortNumericAscending:
    case Flex::flexSortNumericDescending:
        order = firstKey == lastKey
                    ? numericOrder(store, first, count, firstKey, ascending, locale)
                    : keyedOrder<double>(store, first, count, firstKey, lastKey, ascending, number,
                                         [](double a, double b) { return sign(a - b); });
        break;
    case Flex::flexSortGenericAscending:
    case Flex::flexSortGenericDescending:
        order = firstKey == lastKey ? genericOrder(store, first, count, firstKey, ascending, locale)
                                    : keyedOrder<GenericKey>(store, first, count, firstKey, lastKey,
                                                             ascending, generic, compareGeneric);
        break;
    case Flex::flexSortStringNoCaseAscending:
    case Flex::flexSortStringNoCaseDescending:
        order = firstKey == lastKey
                    ? textOrder(store, first, count, firstKey, ascending, compareNoCase, true)
                    : keyedOrder<QStringView>(store, first, count, firstKey, lastKey, ascending,
                                              identity, compareNoCase);
        break;
    case Flex::flexSortStringAscending:
    case Flex::flexSortStringDescending:
        order = firstKey == lastKey
                    ? textOrder(store, first, count, firstKey, ascending, compareCase, false)
                    : keyedOrder<QStringView>(store, first, count, firstKey, lastKey, ascending,
                                              identity, compareCase);
        break;
    case Flex::flexSortCustom: {
        order.resize(std::size_t(count));
        std::iota(order.begin(), order.end(), 0u);
        std::stable_sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
            short cmp = 0;
            Q_EMIT q->Compare(first + int(a), first + int(b), cmp);
            return cmp < 0;
        });
        break;
    }
    default:
        return;
    }
    store.reorderRows(first, order);
    relayout();
}

} // namespace VemoGridLib
