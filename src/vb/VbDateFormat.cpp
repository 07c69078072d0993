// SPDX-License-Identifier: MIT
// VB runtime subset: Format with date formats, and CStr of a date, in the en-US and zh-CN rules.
#include "vb/VbDateTime.h"
#include "vb/VbFormat.h"
#include "vb/VbFormatSyntax_p.h"
#include "vb/VbFormat_p.h"

#include <QHash>
#include <QList>

#include <algorithm>
#include <utility>

namespace VemoGridLib::vb {

namespace {

// The en-US names are confirmed on Windows; the zh-CN texts are not yet: "一月" for
// mmmm, "1月" for mmm, "星期一" for both ddd and dddd, 上午/下午 for AM/PM.
constexpr const char* kEnMonths[12] = {"January",   "February", "March",    "April",
                                       "May",       "June",     "July",     "August",
                                       "September", "October",  "November", "December"};
constexpr const char16_t* kZhMonths[12] = {u"一月", u"二月", u"三月",   u"四月",
                                           u"五月", u"六月", u"七月",   u"八月",
                                           u"九月", u"十月", u"十一月", u"十二月"};
// Sunday first, as Weekday counts.
constexpr const char* kEnDays[7] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                    "Thursday", "Friday", "Saturday"};
constexpr const char16_t* kZhDays[7] = {u"星期日", u"星期一", u"星期二", u"星期三",
                                        u"星期四", u"星期五", u"星期六"};

// The locale's date and time shapes, written in the tokens of this file.
struct LocaleFormats
{
    QString shortDate, longDate, mediumDate, longTime, am, pm;
};

const LocaleFormats& formatsFor(VbLocale locale)
{
    static const LocaleFormats enUs{
        QStringLiteral("m/d/yyyy"),  QStringLiteral("dddd, mmmm dd, yyyy"),
        QStringLiteral("dd-mmm-yy"), QStringLiteral("h:mm:ss AM/PM"),
        QStringLiteral("AM"),        QStringLiteral("PM")};
    // Medium Date is unconfirmed for zh-CN.
    static const LocaleFormats zhCn{QStringLiteral("yyyy/m/d"), QStringLiteral("yyyy年m月d日"),
                                    QStringLiteral("yy-mm-dd"), QStringLiteral("h:mm:ss"),
                                    QStringLiteral("上午"),     QStringLiteral("下午")};
    return locale == VbLocale::ZhCN ? zhCn : enUs;
}

enum class Kind {
    Literal,
    Day,
    Day2,
    DayAbbr,
    DayName,
    ShortDate,
    LongDate,
    Weekday,
    WeekOfYear,
    Month,
    Month2,
    MonthAbbr,
    MonthName,
    Minute,
    Minute2,
    Quarter,
    DayOfYear,
    Year2,
    Year4,
    Hour,
    Hour2,
    Second,
    Second2,
    AmPm,       // "AM/PM", "am/pm": the halves as written (the locale designators in zh-CN)
    AmPmLetter, // "A/P", "a/p": the letters as written
    AmPmLocale, // "AMPM": the locale designators
    TimeSep,
    DateSep,
};

struct Token
{
    Kind kind;
    QString text; // Literal: the text; AmPm, AmPmLetter: the morning half
    QString alt;  // AmPm, AmPmLetter: the afternoon half
};

bool matchesAt(const QString& s, qsizetype i, QLatin1String word)
{
    return QStringView(s).mid(i, word.size()).compare(word, Qt::CaseInsensitive) == 0;
}

// The tokens a format letter makes (any letter case), by length: entry k is the token of
// k + 1 letters; Literal marks a length with no token of its own ("yyy" is "yy" + "y").
// Null for a letter that is no token.
const QList<Kind>* letterTokens(QChar letter)
{
    static const QHash<char16_t, QList<Kind>> table{
        {u'd',
         {Kind::Day, Kind::Day2, Kind::DayAbbr, Kind::DayName, Kind::ShortDate, Kind::LongDate}},
        {u'm', {Kind::Month, Kind::Month2, Kind::MonthAbbr, Kind::MonthName}},
        {u'y', {Kind::DayOfYear, Kind::Year2, Kind::Literal, Kind::Year4}},
        {u'w', {Kind::Weekday, Kind::WeekOfYear}},
        {u'q', {Kind::Quarter}},
        {u'h', {Kind::Hour, Kind::Hour2}},
        {u'n', {Kind::Minute, Kind::Minute2}},
        {u's', {Kind::Second, Kind::Second2}},
    };
    const auto it = table.constFind(letter.toLower().unicode());
    return it == table.cend() ? nullptr : &*it;
}

bool startsAmPmToken(const QString& s, qsizetype i)
{
    return matchesAt(s, i, QLatin1String("am/pm")) || matchesAt(s, i, QLatin1String("ampm")) ||
           matchesAt(s, i, QLatin1String("a/p"));
}

// How many times the letter at i repeats (any letter case).
qsizetype runLength(const QString& s, qsizetype i)
{
    const QChar letter = s.at(i).toLower();
    qsizetype j = i;
    while (j < s.size() && s.at(j).toLower() == letter)
        ++j;
    return j - i;
}

// Splits the first section of a date format into tokens: letter case does not matter;
// runs longer than the longest token start a new token ("yyy" = "yy" + "y"); \x and "text" are
// literals, as is any other character.
class FormatTokenizer
{
public:
    explicit FormatTokenizer(const QString& format)
        : m_format(format)
    {}

    QList<Token> readFirstSection() &&
    {
        while (m_pos < m_format.size() && m_format.at(m_pos) != u';')
            readNext();
        return std::move(m_tokens);
    }

private:
    void readNext()
    {
        if (const std::optional<detail::FormatLiteral> literal =
                detail::literalAt(m_format, m_pos)) {
            appendLiteral(literal->text);
            m_pos = literal->end;
            return;
        }
        const QChar c = m_format.at(m_pos);
        if (!readAmPm() && !readLetterRun(c))
            readOtherCharacter(c);
    }

    // "AM/PM", "AMPM" or "A/P" in any letter case; false when none starts here.
    bool readAmPm()
    {
        if (matchesAt(m_format, m_pos, QLatin1String("am/pm"))) {
            m_tokens.append({Kind::AmPm, m_format.mid(m_pos, 2), m_format.mid(m_pos + 3, 2)});
            m_pos += 5;
        } else if (matchesAt(m_format, m_pos, QLatin1String("ampm"))) {
            append(Kind::AmPmLocale);
            m_pos += 4;
        } else if (matchesAt(m_format, m_pos, QLatin1String("a/p"))) {
            m_tokens.append({Kind::AmPmLetter, m_format.mid(m_pos, 1), m_format.mid(m_pos + 2, 1)});
            m_pos += 3;
        } else {
            return false;
        }
        return true;
    }

    // A run of one token letter; false when the letter is no token.
    bool readLetterRun(QChar letter)
    {
        const QList<Kind>* kinds = letterTokens(letter);
        if (!kinds)
            return false;
        // Greedy: the longest token the run allows, then the rest of the run.
        for (qsizetype run = runLength(m_format, m_pos); run > 0;) {
            const qsizetype take = longestTokenLength(*kinds, run);
            append(kinds->at(take - 1));
            m_pos += take;
            run -= take;
        }
        return true;
    }

    // How many letters of the run the next token takes: no more than the longest token, and
    // never a length with no token of its own.
    static qsizetype longestTokenLength(const QList<Kind>& kinds, qsizetype run)
    {
        qsizetype take = std::min(run, kinds.size());
        while (kinds.at(take - 1) == Kind::Literal)
            --take;
        return take;
    }

    void readOtherCharacter(QChar c)
    {
        if (c == u':')
            append(Kind::TimeSep);
        else if (c == u'/')
            append(Kind::DateSep);
        else
            appendLiteral(QStringView(m_format).mid(m_pos, 1));
        ++m_pos;
    }

    void append(Kind kind) { m_tokens.append({kind, {}, {}}); }

    // Adjacent literal text makes one token.
    void appendLiteral(QStringView text)
    {
        if (!m_tokens.isEmpty() && m_tokens.last().kind == Kind::Literal)
            m_tokens.last().text += text;
        else
            m_tokens.append({Kind::Literal, text.toString(), {}});
    }

    const QString& m_format;
    qsizetype m_pos = 0;
    QList<Token> m_tokens;
};

// m / mm right after an hour token (blanks and a ':' between are fine) is the minute, once.
void markMinutesAfterHours(QList<Token>& tokens)
{
    bool afterHour = false;
    for (Token& t : tokens) {
        switch (t.kind) {
        case Kind::Hour:
        case Kind::Hour2:
            afterHour = true;
            break;
        case Kind::TimeSep:
            break;
        case Kind::Literal:
            // Blanks between the hour and the minute do not part them: "hh :mm" as "hh:mm".
            if (t.text.count(u' ') != t.text.size())
                afterHour = false;
            break;
        case Kind::Month:
        case Kind::Month2:
            if (afterHour)
                t.kind = t.kind == Kind::Month ? Kind::Minute : Kind::Minute2;
            afterHour = false;
            break;
        default:
            afterHour = false;
        }
    }
}

QList<Token> tokenize(const QString& format)
{
    QList<Token> tokens = FormatTokenizer(format).readFirstSection();
    markMinutesAfterHours(tokens);
    return tokens;
}

QString twoDigits(int value)
{
    return QStringLiteral("%1").arg(value, 2, 10, QLatin1Char('0'));
}

// The date and time of a VB Date argument, the time rounded to the nearest second as VB
// splits a serial; an invalid (null) QDateTime is the empty date, serial 0.
std::pair<QDate, QTime> dateParts(const QDateTime& value)
{
    QDate date = value.date().isValid() ? value.date() : QDate(1899, 12, 30);
    int seconds = (value.time().msecsSinceStartOfDay() + 500) / 1000;
    if (seconds >= 86400) {
        date = date.addDays(1);
        seconds -= 86400;
    }
    return {date, QTime(0, 0).addSecs(seconds)};
}

// Whether the format has an AM/PM token, which puts its hours on the 12-hour clock.
bool hasAmPm(const QList<Token>& tokens)
{
    return std::any_of(tokens.begin(), tokens.end(), [](const Token& t) {
        return t.kind == Kind::AmPm || t.kind == Kind::AmPmLetter || t.kind == Kind::AmPmLocale;
    });
}

// The hour as written: 1 .. 12 on the 12-hour clock, else 0 .. 23.
int clockHour(int hour, bool twelveHour)
{
    if (!twelveHour)
        return hour;
    return hour % 12 == 0 ? 12 : hour % 12;
}

// Declared ahead of DateRenderer, which renders the locale's formats for ddddd and dddddd.
QString render(const QString& format, QDate date, QTime time, VbLocale locale);

// The text of each date format token for one date and time in a locale.
class DateRenderer
{
public:
    DateRenderer(QDate date, QTime time, VbLocale locale, bool twelveHour)
        : m_date(date)
        , m_time(time)
        , m_locale(locale)
        , m_names(formatsFor(locale))
        , m_zh(locale == VbLocale::ZhCN)
        , m_weekday(Weekday(QDateTime(date, time, Qt::UTC))) // 1 Sunday .. 7 Saturday
        , m_hour(clockHour(time.hour(), twelveHour))
        , m_morning(time.hour() < 12)
    {}

    QString text(const Token& t) const
    {
        switch (t.kind) {
        case Kind::Literal:
            return t.text;
        case Kind::TimeSep:
            return QStringLiteral(":"); // en-US and zh-CN
        case Kind::DateSep:
            return QStringLiteral("/"); // en-US and zh-CN
        case Kind::ShortDate:
            return render(m_names.shortDate, m_date, m_time, m_locale);
        case Kind::LongDate:
            return render(m_names.longDate, m_date, m_time, m_locale);
        case Kind::DayAbbr:
        case Kind::DayName:
            return dayName(t.kind == Kind::DayAbbr);
        case Kind::MonthAbbr:
        case Kind::MonthName:
            return monthName(t.kind == Kind::MonthAbbr);
        case Kind::AmPm:
            return m_zh ? localeAmPm() : writtenAmPm(t);
        case Kind::AmPmLetter:
            return writtenAmPm(t);
        case Kind::AmPmLocale:
            return localeAmPm();
        default:
            return numberText(t.kind);
        }
    }

private:
    // en-US abbreviates to three letters; zh-CN writes "星期一" for both.
    QString dayName(bool abbreviated) const
    {
        if (m_zh)
            return QString::fromUtf16(kZhDays[m_weekday - 1]);
        const QString name = QString::fromLatin1(kEnDays[m_weekday - 1]);
        return abbreviated ? name.left(3) : name;
    }

    QString monthName(bool abbreviated) const
    {
        const int month = m_date.month();
        if (m_zh)
            return abbreviated ? QStringLiteral("%1月").arg(month)
                               : QString::fromUtf16(kZhMonths[month - 1]);
        const QString name = QString::fromLatin1(kEnMonths[month - 1]);
        return abbreviated ? name.left(3) : name;
    }

    // The halves as the format writes them.
    QString writtenAmPm(const Token& t) const { return m_morning ? t.text : t.alt; }
    QString localeAmPm() const { return m_morning ? m_names.am : m_names.pm; }

    QString numberText(Kind kind) const
    {
        const bool twoDigit = kind == Kind::Day2 || kind == Kind::Month2 || kind == Kind::Year2 ||
                              kind == Kind::Hour2 || kind == Kind::Minute2 || kind == Kind::Second2;
        const int value = number(kind);
        return twoDigit ? twoDigits(value) : QString::number(value);
    }

    // The number a numeric token writes.
    int number(Kind kind) const
    {
        switch (kind) {
        case Kind::Day:
        case Kind::Day2:
            return m_date.day();
        case Kind::Weekday:
            return m_weekday;
        case Kind::WeekOfYear:
            return weekOfYear();
        case Kind::Month:
        case Kind::Month2:
            return m_date.month();
        case Kind::Quarter:
            return (m_date.month() - 1) / 3 + 1;
        case Kind::DayOfYear:
            return m_date.dayOfYear();
        case Kind::Year2:
            return m_date.year() % 100;
        case Kind::Year4:
            return m_date.year();
        case Kind::Hour:
        case Kind::Hour2:
            return m_hour;
        case Kind::Minute:
        case Kind::Minute2:
            return m_time.minute();
        case Kind::Second:
        case Kind::Second2:
            return m_time.second();
        default:
            Q_UNREACHABLE(); // text() writes every other kind itself
        }
    }

    // Weeks start on Sunday; the week holding 1 January is week 1.
    int weekOfYear() const
    {
        const int jan1Offset =
            Weekday(QDateTime(QDate(m_date.year(), 1, 1), QTime(0, 0), Qt::UTC)) - 1;
        return (m_date.dayOfYear() - 1 + jan1Offset) / 7 + 1;
    }

    const QDate m_date;
    const QTime m_time;
    const VbLocale m_locale;
    const LocaleFormats& m_names;
    const bool m_zh;
    const int m_weekday;
    const int m_hour;
    const bool m_morning;
};

QString render(const QString& format, QDate date, QTime time, VbLocale locale)
{
    const QList<Token> tokens = tokenize(format);
    const DateRenderer renderer(date, time, locale, hasAmPm(tokens));
    QString out;
    for (const Token& t : tokens)
        out += renderer.text(t);
    return out;
}

// The format behind a named date format, or a null string. "General Date" gives "" (CStr).
QString namedDateFormat(const QString& format, VbLocale locale)
{
    const LocaleFormats& f = formatsFor(locale);
    const std::pair<const char*, QString> named[] = {
        {"General Date", QStringLiteral("")},
        {"Long Date", QStringLiteral("dddddd")},
        {"Medium Date", f.mediumDate},
        {"Short Date", QStringLiteral("ddddd")},
        {"Long Time", f.longTime},
        {"Medium Time", QStringLiteral("hh:mm AM/PM")},
        {"Short Time", QStringLiteral("hh:mm")},
    };
    for (const auto& [name, pattern] : named) {
        if (format.compare(QLatin1String(name), Qt::CaseInsensitive) == 0)
            return pattern;
    }
    return QString();
}

// The spreadsheet code of each token with one; the others (weekday and week numbers, quarter,
// day of the year) have none and are left out. Minutes are "m", which a spreadsheet reads as
// minutes next to an hour or a second.
QString spreadsheetCodes(const QString& pattern, const LocaleFormats& f)
{
    static const QHash<Kind, QString> codes{
        {Kind::Day, "d"},          {Kind::Day2, "dd"},        {Kind::DayAbbr, "ddd"},
        {Kind::DayName, "dddd"},   {Kind::Month, "m"},        {Kind::Month2, "mm"},
        {Kind::MonthAbbr, "mmm"},  {Kind::MonthName, "mmmm"}, {Kind::Minute, "m"},
        {Kind::Minute2, "mm"},     {Kind::Year2, "yy"},       {Kind::Year4, "yyyy"},
        {Kind::Hour, "h"},         {Kind::Hour2, "hh"},       {Kind::Second, "s"},
        {Kind::Second2, "ss"},     {Kind::AmPm, "AM/PM"},     {Kind::AmPmLocale, "AM/PM"},
        {Kind::AmPmLetter, "A/P"}, {Kind::TimeSep, ":"},      {Kind::DateSep, "/"},
    };
    QString out;
    for (const Token& t : tokenize(pattern)) {
        if (t.kind == Kind::Literal)
            out += detail::spreadsheetLiteral(t.text);
        else if (t.kind == Kind::ShortDate || t.kind == Kind::LongDate)
            out += spreadsheetCodes(t.kind == Kind::ShortDate ? f.shortDate : f.longDate, f);
        else
            out += codes.value(t.kind);
    }
    return out;
}

} // namespace

namespace detail {

bool isNamedDateFormat(const QString& format)
{
    return !namedDateFormat(format, VbLocale::EnUS).isNull();
}

bool startsDateToken(const QString& format, qsizetype pos)
{
    return letterTokens(format.at(pos)) != nullptr || startsAmPmToken(format, pos);
}

QString spreadsheetDateFormat(const QString& format, VbLocale locale)
{
    const LocaleFormats& f = formatsFor(locale);
    const QString named = namedDateFormat(format, locale);
    if (format.isEmpty() || (!named.isNull() && named.isEmpty()))
        return spreadsheetCodes(f.shortDate + u' ' + f.longTime, f);
    return spreadsheetCodes(named.isNull() ? format : named, f);
}

QString formatDateTime(const QDateTime& value, const QString& format, VbLocale locale)
{
    const QString named = namedDateFormat(format, locale);
    if (format.isEmpty() || (!named.isNull() && named.isEmpty()))
        return CStr(value, locale);
    const auto [date, time] = dateParts(value);
    return render(named.isNull() ? format : named, date, time, locale);
}

} // namespace detail

QString Format(const QDateTime& value, const QString& format, VbLocale locale)
{
    // VB hands a date to a number or text format as its serial or its general text.
    if (format.isEmpty() || detail::isDateFormat(format))
        return detail::formatDateTime(value, format, locale);
    if (detail::formatKind(format) == detail::FormatKind::Text)
        return Format(CStr(value, locale), format, locale);
    return Format(DateToSerial(value), format, locale);
}

QString CStr(const QDateTime& date, VbLocale locale)
{
    // VB writes the date alone when the time is midnight, the time alone on day 0
    // (1899-12-30), and "12:00:00 AM" for the empty date itself.
    const auto [day, time] = dateParts(date);
    const LocaleFormats& f = formatsFor(locale);
    if (day == QDate(1899, 12, 30))
        return render(f.longTime, day, time, locale);
    if (time == QTime(0, 0))
        return render(f.shortDate, day, time, locale);
    return render(f.shortDate + u' ' + f.longTime, day, time, locale);
}

} // namespace VemoGridLib::vb
