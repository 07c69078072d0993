// VB runtime subset: Format with date formats, and CStr of a date (vb-semantics.md §11, §15).
#include "common/VbDateTime.h"
#include "common/VbFormat.h"
#include "common/VbFormat_p.h"
#include "common/VbNumberFormat_p.h"

#include <QHash>
#include <QList>

#include <algorithm>
#include <utility>

namespace VemoGridLib::vb {

namespace {

// en-US names are [V]; the zh-CN texts are unconfirmed (§15): the full month name "一月" for
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

// Splits the first section of a date format into tokens (§11): letter case does not matter;
// runs longer than the longest token start a new token ("yyy" = "yy" + "y"); \x and "text" are
// literals, as is any other character.
QList<Token> tokenize(const QString& format)
{
    QList<Token> tokens;
    auto literal = [&tokens](QStringView text) {
        if (!tokens.isEmpty() && tokens.last().kind == Kind::Literal)
            tokens.last().text += text;
        else
            tokens.append({Kind::Literal, text.toString(), {}});
    };
    auto add = [&tokens](Kind kind) {
        tokens.append({kind, {}, {}});
    };

    const qsizetype n = format.size();
    qsizetype i = 0;
    while (i < n) {
        const QChar c = format.at(i);
        if (c == u'"') {
            qsizetype end = format.indexOf(u'"', i + 1);
            if (end < 0)
                end = n;
            literal(QStringView(format).mid(i + 1, end - i - 1));
            i = end + 1;
            continue;
        }
        if (c == u'\\') {
            if (i + 1 < n)
                literal(QStringView(format).mid(i + 1, 1));
            i += 2;
            continue;
        }
        if (c == u';')
            break;
        if (matchesAt(format, i, QLatin1String("am/pm"))) {
            tokens.append({Kind::AmPm, format.mid(i, 2), format.mid(i + 3, 2)});
            i += 5;
            continue;
        }
        if (matchesAt(format, i, QLatin1String("ampm"))) {
            add(Kind::AmPmLocale);
            i += 4;
            continue;
        }
        if (matchesAt(format, i, QLatin1String("a/p"))) {
            tokens.append({Kind::AmPmLetter, format.mid(i, 1), format.mid(i + 2, 1)});
            i += 3;
            continue;
        }
        if (const QList<Kind>* kinds = letterTokens(c)) {
            // Greedy: the longest token the run allows, then the rest of the run.
            for (qsizetype run = runLength(format, i); run > 0;) {
                qsizetype take = std::min(run, kinds->size());
                while (kinds->at(take - 1) == Kind::Literal)
                    --take;
                add(kinds->at(take - 1));
                i += take;
                run -= take;
            }
            continue;
        }
        switch (c.unicode()) {
        case u':':
            add(Kind::TimeSep);
            ++i;
            continue;
        case u'/':
            add(Kind::DateSep);
            ++i;
            continue;
        default:
            literal(QStringView(format).mid(i, 1));
            ++i;
        }
    }

    // m / mm right after an hour token (a ':' between is fine) is the minute, once.
    bool afterHour = false;
    for (Token& t : tokens) {
        switch (t.kind) {
        case Kind::Hour:
        case Kind::Hour2:
            afterHour = true;
            break;
        case Kind::TimeSep:
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
    return tokens;
}

QString twoDigits(int value)
{
    return QStringLiteral("%1").arg(value, 2, 10, QLatin1Char('0'));
}

// The date and time of a VB Date argument, the time rounded to the nearest second as VB
// splits a serial (§1); an invalid (null) QDateTime is the empty date, serial 0.
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

QString render(const QString& format, QDate date, QTime time, VbLocale locale)
{
    const QList<Token> tokens = tokenize(format);
    const bool twelveHour = std::any_of(tokens.begin(), tokens.end(), [](const Token& t) {
        return t.kind == Kind::AmPm || t.kind == Kind::AmPmLetter || t.kind == Kind::AmPmLocale;
    });
    const bool zh = locale == VbLocale::ZhCN;
    const LocaleFormats& names = formatsFor(locale);
    const QDateTime value(date, time, Qt::UTC);
    const int weekday = Weekday(value); // 1 Sunday .. 7 Saturday
    const bool morning = time.hour() < 12;
    int hour = time.hour();
    if (twelveHour) {
        hour %= 12;
        if (hour == 0)
            hour = 12;
    }

    QString out;
    for (const Token& t : tokens) {
        switch (t.kind) {
        case Kind::Literal:
            out += t.text;
            break;
        case Kind::Day:
            out += QString::number(date.day());
            break;
        case Kind::Day2:
            out += twoDigits(date.day());
            break;
        case Kind::DayAbbr:
            out += zh ? QString::fromUtf16(kZhDays[weekday - 1])
                      : QString::fromLatin1(kEnDays[weekday - 1]).left(3);
            break;
        case Kind::DayName:
            out += zh ? QString::fromUtf16(kZhDays[weekday - 1])
                      : QString::fromLatin1(kEnDays[weekday - 1]);
            break;
        case Kind::ShortDate:
            out += render(names.shortDate, date, time, locale);
            break;
        case Kind::LongDate:
            out += render(names.longDate, date, time, locale);
            break;
        case Kind::Weekday:
            out += QString::number(weekday);
            break;
        case Kind::WeekOfYear: {
            // Weeks start on Sunday; the week holding 1 January is week 1.
            const int jan1Offset =
                Weekday(QDateTime(QDate(date.year(), 1, 1), QTime(0, 0), Qt::UTC)) - 1;
            out += QString::number((date.dayOfYear() - 1 + jan1Offset) / 7 + 1);
            break;
        }
        case Kind::Month:
            out += QString::number(date.month());
            break;
        case Kind::Month2:
            out += twoDigits(date.month());
            break;
        case Kind::MonthAbbr:
            out += zh ? QStringLiteral("%1月").arg(date.month())
                      : QString::fromLatin1(kEnMonths[date.month() - 1]).left(3);
            break;
        case Kind::MonthName:
            out += zh ? QString::fromUtf16(kZhMonths[date.month() - 1])
                      : QString::fromLatin1(kEnMonths[date.month() - 1]);
            break;
        case Kind::Minute:
            out += QString::number(time.minute());
            break;
        case Kind::Minute2:
            out += twoDigits(time.minute());
            break;
        case Kind::Quarter:
            out += QString::number((date.month() - 1) / 3 + 1);
            break;
        case Kind::DayOfYear:
            out += QString::number(date.dayOfYear());
            break;
        case Kind::Year2:
            out += twoDigits(date.year() % 100);
            break;
        case Kind::Year4:
            out += QString::number(date.year());
            break;
        case Kind::Hour:
            out += QString::number(hour);
            break;
        case Kind::Hour2:
            out += twoDigits(hour);
            break;
        case Kind::Second:
            out += QString::number(time.second());
            break;
        case Kind::Second2:
            out += twoDigits(time.second());
            break;
        case Kind::AmPm:
            if (zh)
                out += morning ? names.am : names.pm;
            else
                out += morning ? t.text : t.alt;
            break;
        case Kind::AmPmLetter:
            out += morning ? t.text : t.alt;
            break;
        case Kind::AmPmLocale:
            out += morning ? names.am : names.pm;
            break;
        case Kind::TimeSep:
            out += u':';
            break; // en-US and zh-CN
        case Kind::DateSep:
            out += u'/';
            break; // en-US and zh-CN
        }
    }
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

bool isNamedNumberFormat(const QString& format)
{
    for (const char* name : {"General Number", "Currency", "Fixed", "Standard", "Percent",
                             "Scientific", "Yes/No", "True/False", "On/Off"}) {
        if (format.compare(QLatin1String(name), Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

} // namespace

namespace detail {

bool isDateFormat(const QString& format)
{
    if (!namedDateFormat(format, VbLocale::EnUS).isNull())
        return true;
    if (isNamedNumberFormat(format))
        return false;
    // The first placeholder of the first section decides, as in VB's format parser: a digit
    // placeholder (0 #) makes a number format whose letters are literals ("##abc" → "1abc"),
    // a text placeholder (@ &) a text format, a date token a date format.
    const qsizetype n = format.size();
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = format.at(i);
        if (c == u'"') {
            i = format.indexOf(u'"', i + 1);
            if (i < 0)
                return false;
            continue;
        }
        if (c == u'\\') {
            ++i;
            continue;
        }
        if (QStringView(u";0#@&").contains(c))
            return false;
        if (letterTokens(c) || startsAmPmToken(format, i))
            return true;
    }
    return false;
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
