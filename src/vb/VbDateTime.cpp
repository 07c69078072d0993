// SPDX-License-Identifier: MIT
// VB runtime subset: date serials, DateSerial, IsDate/CDate, DateAdd, DateDiff, Weekday
// and Weekday. CStr(date) lives with the date formatter in VbDateFormat.cpp.
#include "vb/VbDateTime.h"

#include "vb/VbFormat_p.h"
#include "common/VemoError.h"

#include <QHash>
#include <QList>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace VemoGridLib::vb {

namespace {

constexpr qint64 kJulianDayOfSerialZero = 2415019; // 1899-12-30
constexpr double kMinSerial = -657434.0;           // 0100-01-01
constexpr double kMaxSerial = 2958465.0;           // 9999-12-31
constexpr qint64 kMsPerDay = 86400000;

QDate serialZeroDate()
{
    return QDate::fromJulianDay(kJulianDayOfSerialZero);
}

// The calendar day of a VB Date argument; an invalid (null) QDateTime is VB's empty date,
// serial 0.
QDate dateOf(const QDateTime& value)
{
    return value.date().isValid() ? value.date() : serialZeroDate();
}

QDateTime makeDate(QDate date, QTime time = QTime(0, 0))
{
    return QDateTime(date, time, Qt::UTC);
}

bool isVbYear(qint64 year)
{
    return year >= 100 && year <= 9999;
}

qint64 floorDiv(qint64 a, qint64 b)
{
    const qint64 q = a / b;
    return (a % b != 0 && ((a < 0) != (b < 0))) ? q - 1 : q;
}

// Round to the nearest whole number, exact halves to the even neighbour (VB's rounding of
// counts; independent of the floating-point rounding mode).
double roundHalfEven(double x)
{
    const double lower = std::floor(x);
    const double diff = x - lower;
    if (diff > 0.5)
        return lower + 1.0;
    if (diff < 0.5)
        return lower;
    return std::fmod(lower, 2.0) == 0.0 ? lower : lower + 1.0;
}

// The two-digit year window of Windows 10 1903 and later: 00–49 → 2000–2049, 50–99 →
// 1950–1999, as VB's date parsing applies it.
int expandTwoDigitYear(int year)
{
    if (year >= 0 && year < 50)
        return year + 2000;
    if (year >= 50 && year < 100)
        return year + 1900;
    return year;
}

// Months since year 0 (January of year 0 is 0): calendar steps count boundaries of it.
qint64 monthIndex(QDate day)
{
    return qint64(day.year()) * 12 + (day.month() - 1);
}

// The day `day` of the month with index `months` (see monthIndex), clamped to the month's
// length; invalid when the year leaves 100..9999.
QDate clampedDate(qint64 months, int day)
{
    const qint64 year = floorDiv(months, 12);
    if (!isVbYear(year))
        return QDate();
    const int month = int(months - year * 12) + 1;
    const int last = QDate(int(year), month, 1).daysInMonth();
    return QDate(int(year), month, std::min(day, last));
}

// ---------------------------------------------------------------------------------------------
// The lenient date parser of IsDate / CDate.

// What stood between an element and the one before it.
enum class Sep { None, Blank, Slash, Dash, Comma, Colon, Dot };

struct Element
{
    enum Kind { Number, Month, AmPm } kind;
    int value; // the number; the month 1..12; 1 for PM and 0 for AM
    Sep sep;   // the separator before this element
};

bool isBlank(QChar c)
{
    return c == u' ' || c == u'\t' || c == QChar(0x3000);
}

Sep punctuation(QChar c)
{
    switch (c.unicode()) {
    case u'/':
        return Sep::Slash;
    case u'-':
        return Sep::Dash;
    case u',':
        return Sep::Comma;
    case u':':
        return Sep::Colon;
    case u'.':
        return Sep::Dot;
    default:
        return Sep::None;
    }
}

bool isTimeSep(Sep s)
{
    return s == Sep::Colon || s == Sep::Dot;
}

// The words the parser knows, lower case: month names (from the formatter's own tables, so
// that what Format writes CDate reads back) and AM/PM designators.
struct Words
{
    QHash<QString, int> months;
    QHash<QString, int> amPm;
};

const Words& wordsFor(VbLocale locale)
{
    static const std::array<Words, 2> tables = [] {
        std::array<Words, 2> t;
        for (int m = 1; m <= 12; ++m) {
            const QDateTime first = makeDate(QDate(2000, m, 1));
            for (const char* fmt : {"mmmm", "mmm"}) {
                const QString name =
                    detail::formatDateTime(first, QLatin1String(fmt), VbLocale::EnUS).toLower();
                t[0].months.insert(name, m);
                t[1].months.insert(name, m);
            }
            // zh-CN: "一月" .. "十二月"; the "1月" .. "12月" forms are read by the tokenizer.
            t[1].months.insert(
                detail::formatDateTime(first, QStringLiteral("mmmm"), VbLocale::ZhCN), m);
        }
        for (Words& w : t) {
            w.amPm.insert(QStringLiteral("am"), 0);
            w.amPm.insert(QStringLiteral("a"), 0);
            w.amPm.insert(QStringLiteral("pm"), 1);
            w.amPm.insert(QStringLiteral("p"), 1);
        }
        // zh-CN also reads its own designators, 上午 and 下午.
        for (const int pm : {0, 1}) {
            const QDateTime time = makeDate(serialZeroDate(), QTime(pm * 12, 0));
            t[1].amPm.insert(detail::formatDateTime(time, QStringLiteral("AMPM"), VbLocale::ZhCN),
                             pm);
        }
        return t;
    }();
    return tables[locale == VbLocale::ZhCN ? 1 : 0];
}

// Any separator but a blank: these may neither follow one another nor stand at either end.
bool isPunctuation(Sep s)
{
    return s != Sep::None && s != Sep::Blank;
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

// Splits the text into numbers, month names and AM/PM, each with the separator before it.
// Fails on anything else, on two punctuation separators in a row, and on a punctuation
// separator at either end.
class ElementReader
{
public:
    ElementReader(const QString& text, VbLocale locale)
        : m_text(text)
        , m_locale(locale)
        , m_words(wordsFor(locale))
    {}

    std::optional<QList<Element>> readAll() &&
    {
        while (m_pos < m_text.size()) {
            if (!readNext())
                return std::nullopt;
        }
        if (isPunctuation(m_pending))
            return std::nullopt; // a trailing '-', '/', '.', ...
        return std::move(m_elements);
    }

private:
    bool readNext()
    {
        const QChar c = m_text.at(m_pos);
        if (isBlank(c)) {
            readBlank();
            return true;
        }
        if (const Sep p = punctuation(c); p != Sep::None)
            return readPunctuation(p);
        if (isDigit(c))
            return readNumber();
        if (c.isLetter())
            return readWord();
        return false;
    }

    // A blank only counts when no punctuation stands beside it.
    void readBlank()
    {
        if (m_pending == Sep::None)
            m_pending = Sep::Blank;
        ++m_pos;
    }

    bool readPunctuation(Sep p)
    {
        if (isPunctuation(m_pending))
            return false;
        m_pending = p;
        ++m_pos;
        return true;
    }

    // A number, or in zh-CN a month written as a number and 月 ("1月").
    bool readNumber()
    {
        const std::optional<int> value = readDigits();
        if (!value)
            return false;
        if (m_locale == VbLocale::ZhCN && m_pos < m_text.size() &&
            m_text.at(m_pos) == QChar(0x6708)) {
            ++m_pos;
            return *value >= 1 && *value <= 12 && append(Element::Month, *value);
        }
        return append(Element::Number, *value);
    }

    std::optional<int> readDigits()
    {
        qint64 value = 0;
        const qsizetype start = m_pos;
        while (m_pos < m_text.size() && isDigit(m_text.at(m_pos))) {
            value = value * 10 + (m_text.at(m_pos).unicode() - u'0');
            if (++m_pos - start > 9)
                return std::nullopt; // no date field is that long
        }
        return int(value);
    }

    // A month name or an AM/PM designator.
    bool readWord()
    {
        const qsizetype start = m_pos;
        while (m_pos < m_text.size() && m_text.at(m_pos).isLetter())
            ++m_pos;
        const QString word = m_text.mid(start, m_pos - start).toLower();
        if (const auto m = m_words.months.constFind(word); m != m_words.months.cend())
            return append(Element::Month, *m);
        if (const auto a = m_words.amPm.constFind(word); a != m_words.amPm.cend())
            return append(Element::AmPm, *a);
        return false;
    }

    bool append(Element::Kind kind, int value)
    {
        if (m_elements.isEmpty() && isPunctuation(m_pending))
            return false; // a leading '-', '/', '.', ...
        m_elements.append({kind, value, m_elements.isEmpty() ? Sep::None : m_pending});
        m_pending = Sep::None;
        return true;
    }

    const QString& m_text;
    const VbLocale m_locale;
    const Words& m_words;
    qsizetype m_pos = 0;
    Sep m_pending = Sep::None; // the separator since the last element
    QList<Element> m_elements;
};

std::optional<QList<Element>> tokenize(const QString& text, VbLocale locale)
{
    return ElementReader(text, locale).readAll();
}

bool isValidDay(int day, int month, int year)
{
    return month >= 1 && month <= 12 && day >= 1 && year >= 100 && year <= 9999 &&
           day <= QDate(year, month, 1).daysInMonth();
}

// The orders three date values can be read in: which position holds the day, month and year.
struct Order
{
    int day, month, year;
};
constexpr Order MDY{1, 0, 2}, DMY{0, 1, 2}, YMD{2, 1, 0}, YDM{1, 2, 0}, MYD{2, 0, 1}, DYM{0, 2, 1};

bool sameOrder(const Order& a, const Order& b)
{
    return a.day == b.day && a.month == b.month;
}

// The orders by priority: the locale's own first (en-US M/D/Y, zh-CN Y/M/D), then the orders
// compatible with it, then the rest, as oleaut32's VarDateFromStr does.
const QList<Order>& ordersByPriority(VbLocale locale)
{
    static const QList<Order> enUs{MDY, YMD, MYD, DYM, YDM, DMY};
    static const QList<Order> zhCn{YMD, MDY, MYD, DYM, YDM, DMY};
    return locale == VbLocale::ZhCN ? zhCn : enUs;
}

// The orders the values may be read in: a month name at monthPos fixes the month.
QList<Order> allowedOrders(int monthPos, qsizetype valueCount)
{
    switch (monthPos) {
    case 0:
        return {MDY, MYD};
    case 1:
        return {DMY, YMD};
    case 2:
        return {YDM, DYM};
    default:
        // Without a month name: month/day orders, and year first with three numbers. M/Y/D is
        // not tried: "2 32 3" is no date on Windows.
        if (valueCount == 3)
            return {MDY, DMY, YMD};
        return {MDY, DMY};
    }
}

// The first valid date the values make, trying the allowed orders by priority.
std::optional<QDate> firstValidDate(const std::array<int, 3>& values, const QList<Order>& priority,
                                    const QList<Order>& allowed)
{
    for (const Order& o : priority) {
        if (std::none_of(allowed.begin(), allowed.end(),
                         [&](const Order& a) { return sameOrder(a, o); }))
            continue;
        const int year = expandTwoDigitYear(values[o.year]);
        if (isValidDay(values[o.day], values[o.month], year))
            return QDate(year, values[o.month], values[o.day]);
    }
    return std::nullopt;
}

// Two values are a month and a day of the current year ...
std::optional<QDate> dateOfTwoValues(int first, int second, int monthPos,
                                     const QList<Order>& priority)
{
    if (const std::optional<QDate> date = firstValidDate(
            {first, second, QDate::currentDate().year()}, priority, allowedOrders(monthPos, 2)))
        return date;
    // ... else month and year, on the 1st ("30 2" → 2030-02-01); a month name stays a month.
    QList<Order> monthYear;
    if (monthPos != 0)
        monthYear.append(YMD);
    if (monthPos != 1)
        monthYear.append(MYD);
    return firstValidDate({first, second, 1}, priority, monthYear);
}

// Builds the date from two or three date values (one of which may be a month name at
// monthPos).
std::optional<QDate> buildDate(const QList<int>& values, int monthPos, VbLocale locale)
{
    const QList<Order>& priority = ordersByPriority(locale);
    if (values.size() == 3)
        return firstValidDate({values[0], values[1], values[2]}, priority,
                              allowedOrders(monthPos, 3));
    return dateOfTwoValues(values[0], values[1], monthPos, priority);
}

// Where the time stands among the elements.
struct TimeSpan
{
    int start = -1; // [start, end): the numbers of the time; -1 without a time
    int end = -1;
    int amPm = -1; // the AM/PM element; -1 without one

    bool exists() const { return start >= 0; }
    // The end of the time with its AM/PM.
    int blockEnd() const { return amPm >= 0 ? amPm + 1 : end; }
};

// Numbers joined by ':' or '.' make the time; fails when such a separator stands beside
// anything but numbers, and on two times.
bool findJoinedNumbers(const QList<Element>& e, TimeSpan& span)
{
    for (int k = 1; k < int(e.size()); ++k) {
        if (!isTimeSep(e[k].sep))
            continue;
        if (e[k].kind != Element::Number || e[k - 1].kind != Element::Number)
            return false;
        if (span.start < 0)
            span.start = k - 1;
        else if (span.end != k)
            return false; // two times
        span.end = k + 1;
    }
    return true;
}

// AM/PM follows the time's last number, or makes a time of the one number before it; fails on
// a second AM/PM and on one with no number before it.
bool findAmPm(const QList<Element>& e, TimeSpan& span)
{
    for (int k = 0; k < int(e.size()); ++k) {
        if (e[k].kind != Element::AmPm)
            continue;
        if (span.amPm >= 0 || k == 0 || e[k - 1].kind != Element::Number)
            return false;
        if (span.start < 0) {
            span.start = k - 1;
            span.end = k;
        } else if (span.end != k) {
            return false;
        }
        span.amPm = k;
    }
    return true;
}

// The time: numbers joined by ':' or '.', or one number followed by AM/PM.
std::optional<TimeSpan> findTimeSpan(const QList<Element>& e)
{
    TimeSpan span;
    if (!findJoinedNumbers(e, span) || !findAmPm(e, span))
        return std::nullopt;
    return span;
}

// The time stands before or after the date, apart from it by a blank.
bool isApartFromDate(const QList<Element>& e, const TimeSpan& span)
{
    const int blockEnd = span.blockEnd();
    const bool dateBefore = span.start > 0, dateAfter = blockEnd < int(e.size());
    if (dateBefore && dateAfter)
        return false; // a time between date parts
    // Date and time are split by a blank.
    return (!dateBefore || e[span.start].sep == Sep::Blank) &&
           (!dateAfter || e[blockEnd].sep == Sep::Blank);
}

// "0.0" alone is no date on current Windows, although "0.1" and "2.5" are times.
bool isLoneDottedZero(const QList<Element>& e, const TimeSpan& span)
{
    const int count = span.end - span.start;
    if (count <= 1 || span.amPm >= 0 || int(e.size()) != count)
        return false;
    const auto first = e.begin() + span.start, last = e.begin() + span.end;
    return std::all_of(first, last, [](const Element& x) { return x.value == 0; }) &&
           std::all_of(first + 1, last, [](const Element& x) { return x.sep == Sep::Dot; });
}

// 12 AM is midnight and PM moves the hours before noon to the afternoon; any other hour
// stands as written.
int applyAmPm(int hour, int amPm)
{
    if (amPm == 1 && hour < 12)
        return hour + 12;
    if (amPm == 0 && hour == 12)
        return 0;
    return hour;
}

// The hour, minute and second the time's numbers give, in that order.
std::optional<QTime> readTimeFields(const QList<Element>& e, const TimeSpan& span)
{
    const int count = span.end - span.start;
    if (count > 3)
        return std::nullopt; // fractional seconds
    std::array<int, 3> fields{0, 0, 0};
    for (int k = 0; k < count; ++k)
        fields[k] = e[span.start + k].value;
    const auto [hour, minute, second] = fields;
    if (hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    return QTime(span.amPm >= 0 ? applyAmPm(hour, e[span.amPm].value) : hour, minute, second);
}

// The time of day the elements give; midnight without a time.
std::optional<QTime> readTime(const QList<Element>& e, const TimeSpan& span)
{
    if (!span.exists())
        return QTime(0, 0);
    if (!isApartFromDate(e, span) || isLoneDottedZero(e, span))
        return std::nullopt;
    return readTimeFields(e, span);
}

// The values of the date, in the order written, and where its month name stands.
struct DateValues
{
    QList<int> values;
    int monthPos = -1; // the index of the month name in values; -1 without one
    int monthNames = 0;
};

// The date: every element outside the time.
DateValues collectDateValues(const QList<Element>& e, const TimeSpan& span)
{
    DateValues date;
    for (int k = 0; k < int(e.size()); ++k) {
        if (k >= span.start && k < span.blockEnd())
            continue;
        if (e[k].kind == Element::Month) {
            date.monthPos = int(date.values.size());
            ++date.monthNames;
        }
        date.values.append(e[k].value);
    }
    return date;
}

// The day the date values give; serial 0 (1899-12-30) without any.
std::optional<QDate> readDate(const DateValues& date, VbLocale locale)
{
    if (date.values.isEmpty())
        return serialZeroDate();
    // One bare number is never a date; more than three values or two month names neither.
    if (date.values.size() < 2 || date.values.size() > 3 || date.monthNames > 1)
        return std::nullopt;
    return buildDate(date.values, date.monthPos, locale);
}

bool parseDate(const QString& text, VbLocale locale, QDateTime& result)
{
    const std::optional<QList<Element>> elements = tokenize(text, locale);
    if (!elements || elements->isEmpty())
        return false;
    const std::optional<TimeSpan> span = findTimeSpan(*elements);
    if (!span)
        return false;
    const std::optional<QTime> time = readTime(*elements, *span);
    if (!time)
        return false;
    const std::optional<QDate> date = readDate(collectDateValues(*elements, *span), locale);
    if (!date)
        return false;
    result = makeDate(*date, *time);
    return true;
}

// Months in one step of a calendar interval of DateAdd/DateDiff ("yyyy", "q", "m").
std::optional<int> intervalMonths(const QString& unit)
{
    if (unit == u"yyyy")
        return 12;
    if (unit == u"q")
        return 3;
    if (unit == u"m")
        return 1;
    return std::nullopt;
}

// Milliseconds in one step of a fixed-length interval of DateAdd/DateDiff.
std::optional<qint64> intervalMilliseconds(const QString& unit)
{
    if (unit == u"y" || unit == u"d" || unit == u"w")
        return kMsPerDay;
    if (unit == u"ww")
        return 7 * kMsPerDay;
    if (unit == u"h")
        return 3600000;
    if (unit == u"n")
        return 60000;
    if (unit == u"s")
        return 1000;
    return std::nullopt;
}

// "yyyy", "q", "m": the month moves and the day is clamped to its length; the time is kept.
QDateTime addMonths(const QDateTime& date, double count, int monthsPerStep)
{
    if (!(std::fabs(count) * monthsPerStep < 1.0e6))
        throw VemoError::invalidProcedureCall();
    const QDate day = dateOf(date);
    const QDate result = clampedDate(monthIndex(day) + qint64(count) * monthsPerStep, day.day());
    if (!result.isValid())
        throw VemoError::invalidProcedureCall();
    return makeDate(result, date.time().isValid() ? date.time() : QTime(0, 0));
}

// Days, weeks and time units: plain arithmetic on the instant.
QDateTime addMilliseconds(const QDateTime& date, double count, qint64 stepLength)
{
    // The whole Date range is about 3.2e14 ms; larger steps can only leave it.
    if (!(std::fabs(count) * double(stepLength) < 1.0e15))
        throw VemoError::invalidProcedureCall();
    const qint64 total = dateOf(date).toJulianDay() * kMsPerDay +
                         date.time().msecsSinceStartOfDay() + qint64(count) * stepLength;
    const qint64 julianDay = floorDiv(total, kMsPerDay);
    const QDate resultDay = QDate::fromJulianDay(julianDay);
    if (!isVbYear(resultDay.year()))
        throw VemoError::invalidProcedureCall();
    return makeDate(resultDay, QTime::fromMSecsSinceStartOfDay(int(total - julianDay * kMsPerDay)));
}

} // namespace

double DateToSerial(const QDateTime& date)
{
    const qint64 days = dateOf(date).toJulianDay() - kJulianDayOfSerialZero;
    const double fraction = double(date.time().msecsSinceStartOfDay()) / double(kMsPerDay);
    return days >= 0 ? double(days) + fraction : double(days) - fraction;
}

QDateTime SerialToDate(double serial)
{
    // Anything that rounds into 0100-01-01 .. 9999-12-31 (the fraction included) is a date.
    if (!(serial > kMinSerial - 1.0 && serial < kMaxSerial + 1.0))
        throw VemoError::overflow();
    const double days = std::trunc(serial);
    qint64 seconds = std::llround(std::fabs(serial - days) * 86400.0);
    QDate date = QDate::fromJulianDay(qint64(days) + kJulianDayOfSerialZero);
    if (seconds >= 86400) {
        date = date.addDays(1);
        seconds -= 86400;
    }
    if (!isVbYear(date.year()))
        throw VemoError::overflow();
    return makeDate(date, QTime::fromMSecsSinceStartOfDay(int(seconds * 1000)));
}

QDateTime DateSerial(int year, int month, int day)
{
    // Years 0–99 take CDate's two-digit window, as VB's DateSerial does; the month rolls over
    // into the year, then the day into the month.
    const qint64 monthIndex = qint64(expandTwoDigitYear(year)) * 12 + (qint64(month) - 1);
    const qint64 firstYear = floorDiv(monthIndex, 12);
    if (firstYear < -100000 || firstYear > 100000)
        throw VemoError::invalidProcedureCall();
    const QDate first(int(firstYear), int(monthIndex - firstYear * 12) + 1, 1);
    const QDate date = first.addDays(qint64(day) - 1);
    if (!date.isValid() || !isVbYear(date.year()))
        throw VemoError::invalidProcedureCall();
    return makeDate(date);
}

bool IsDate(const QString& text, VbLocale locale)
{
    QDateTime unused;
    return parseDate(text, locale, unused);
}

QDateTime CDate(const QString& text, VbLocale locale)
{
    QDateTime result;
    if (!parseDate(text, locale, result))
        throw VemoError::typeMismatch();
    return result;
}

QDateTime DateAdd(const QString& interval, double number, const QDateTime& date)
{
    const QString unit = interval.toLower();
    const double count = roundHalfEven(number);
    if (const std::optional<int> months = intervalMonths(unit))
        return addMonths(date, count, *months);
    if (const std::optional<qint64> length = intervalMilliseconds(unit))
        return addMilliseconds(date, count, *length);
    throw VemoError::invalidProcedureCall();
}

qint64 DateDiff(const QString& interval, const QDateTime& date1, const QDateTime& date2)
{
    const QString unit = interval.toLower();
    const QDate d1 = dateOf(date1), d2 = dateOf(date2);
    const qint64 days = d2.toJulianDay() - d1.toJulianDay();

    if (unit == u"d" || unit == u"y")
        return days;
    if (unit == u"w")
        return days / 7; // whole 7-day periods, truncated toward zero
    if (unit == u"ww") {
        // Sundays crossed: date2 counts when it is a Sunday, date1 does not. Julian day 6 is
        // a Sunday, so (jd + 1) / 7 steps up on every Sunday.
        return floorDiv(d2.toJulianDay() + 1, 7) - floorDiv(d1.toJulianDay() + 1, 7);
    }
    // Calendar units: year, quarter or month boundaries crossed.
    if (const std::optional<int> months = intervalMonths(unit))
        return floorDiv(monthIndex(d2), *months) - floorDiv(monthIndex(d1), *months);
    // Time units: the difference of the two instants, each truncated to the unit.
    const std::optional<qint64> length = intervalMilliseconds(unit);
    if (!length)
        throw VemoError::invalidProcedureCall();
    const qint64 unitSeconds = *length / 1000;
    auto units = [unitSeconds](QDate d, QTime t) {
        const qint64 seconds = d.toJulianDay() * 86400 + t.msecsSinceStartOfDay() / 1000;
        return floorDiv(seconds, unitSeconds);
    };
    return units(d2, date2.time()) - units(d1, date1.time());
}

int Weekday(const QDateTime& date, int firstDayOfWeek)
{
    // 0 is VB's vbUseSystemDayOfWeek; the VB default (Sunday) stands in for it.
    if (firstDayOfWeek == 0)
        firstDayOfWeek = 1;
    if (firstDayOfWeek < 1 || firstDayOfWeek > 7)
        throw VemoError::invalidProcedureCall();
    const int sundayFirst = dateOf(date).dayOfWeek() % 7 + 1; // Qt: Monday 1 .. Sunday 7
    return (sundayFirst - firstDayOfWeek + 7) % 7 + 1;
}

} // namespace VemoGridLib::vb
