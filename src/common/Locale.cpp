// SPDX-License-Identifier: MIT
#include "common/Locale.h"

#include <algorithm>
#include <cerrno>
#include <iconv.h>
#include <memory>

namespace VemoGridLib {

namespace {

struct LocaleId
{
    const char* name; // language_TERRITORY as POSIX writes it
    quint32 lcid;
};

// Windows locale identifiers of the locales a host is likely to run under. A bare language
// maps to its primary territory, as Windows does for its neutral locales.
constexpr LocaleId localeIds[] = {
    {"zh_CN", 2052}, {"zh_TW", 1028}, {"zh_HK", 3076}, {"zh_SG", 4100}, {"zh_MO", 5124},
    {"zh", 2052},    {"en_US", 1033}, {"en_GB", 2057}, {"en_AU", 3081}, {"en_CA", 4105},
    {"en_NZ", 5129}, {"en_IE", 6153}, {"en", 1033},    {"ja_JP", 1041}, {"ja", 1041},
    {"ko_KR", 1042}, {"ko", 1042},    {"de_DE", 1031}, {"de", 1031},    {"fr_FR", 1036},
    {"fr", 1036},    {"es_ES", 3082}, {"es", 3082},    {"it_IT", 1040}, {"it", 1040},
    {"ru_RU", 1049}, {"ru", 1049},    {"pt_BR", 1046}, {"pt_PT", 2070}, {"pt", 2070},
    {"nl_NL", 1043}, {"nl", 1043},
};

constexpr quint32 lcidEnglishUS = 1033;
constexpr quint32 lcidChinesePRC = 2052;
constexpr quint32 lcidChineseTaiwan = 1028;

// "zh_CN.UTF-8@euro" → "zh_CN": the code set and the modifier do not change the locale id.
QString languageAndTerritory(const QString& localeName)
{
    // Read on every call (hosts switch locales at run time), so no regular expression here.
    QString name = localeName.trimmed();
    const auto cut =
        std::find_if(name.cbegin(), name.cend(), [](QChar ch) { return ch == u'.' || ch == u'@'; });
    name.truncate(cut - name.cbegin());
    return name.replace(QLatin1Char('-'), QLatin1Char('_'));
}

// The first of the variables that is set and not empty, as the C library chooses a locale.
QString firstSetVariable(std::initializer_list<const char*> names)
{
    for (const char* name : names) {
        const QString value = qEnvironmentVariable(name);
        if (!value.isEmpty())
            return value;
    }
    return QString();
}

const char* iconvNameOfCodePage(int codePage)
{
    switch (codePage) {
    case 936:
        return "GBK";
    case 950:
        return "BIG5";
    default:
        return "CP1252";
    }
}

struct IconvCloser
{
    void operator()(void* handle) const { iconv_close(static_cast<iconv_t>(handle)); }
};
using IconvHandle = std::unique_ptr<void, IconvCloser>;

// Length of the UTF-8 sequence that starts with `lead`, so an unmappable character can be
// stepped over whole.
int utf8SequenceLength(unsigned char lead)
{
    if (lead >= 0xF0)
        return 4;
    if (lead >= 0xE0)
        return 3;
    if (lead >= 0xC0)
        return 2;
    return 1;
}

} // namespace

quint32 lcidFromLocaleName(const QString& localeName)
{
    const QString name = languageAndTerritory(localeName);
    for (const LocaleId& id : localeIds) {
        if (name.compare(QLatin1String(id.name), Qt::CaseInsensitive) == 0)
            return id.lcid;
    }
    const QString language = name.section(QLatin1Char('_'), 0, 0);
    for (const LocaleId& id : localeIds) {
        if (language.compare(QLatin1String(id.name), Qt::CaseInsensitive) == 0)
            return id.lcid;
    }
    return lcidEnglishUS;
}

quint32 systemDefaultLcid()
{
    return lcidFromLocaleName(firstSetVariable({"LC_ALL", "LC_MESSAGES", "LANG"}));
}

quint32 userDefaultLcid()
{
    return lcidFromLocaleName(firstSetVariable({"LC_ALL", "LC_TIME", "LANG"}));
}

LanguageIndex languageIndex()
{
    switch (systemDefaultLcid()) {
    case lcidChinesePRC:
        return SimplifiedChinese;
    case lcidChineseTaiwan:
        return TraditionalChinese;
    default:
        return English;
    }
}

int ansiCodePage()
{
    switch (systemDefaultLcid()) {
    case lcidChinesePRC:
        return 936;
    case lcidChineseTaiwan:
        return 950;
    default:
        return 1252;
    }
}

QByteArray toAnsiCodePage(const QString& text)
{
    return toAnsiCodePage(text, ansiCodePage());
}

QByteArray toAnsiCodePage(const QString& text, int codePage)
{
    // ASCII is the same in every supported code page; most cell texts take this path.
    if (std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() < 0x80; }))
        return text.toLatin1();
    QByteArray input = text.toUtf8();
    const IconvHandle converter(iconv_open(iconvNameOfCodePage(codePage), "UTF-8"));
    if (converter.get() == reinterpret_cast<void*>(-1))
        return QByteArray(text.size(), '?');

    // No code page needs more than two bytes for one character.
    QByteArray output(input.size() * 2, Qt::Uninitialized);
    char* in = input.data();
    size_t inLeft = size_t(input.size());
    char* out = output.data();
    size_t outLeft = size_t(output.size());
    while (inLeft > 0) {
        if (iconv(static_cast<iconv_t>(converter.get()), &in, &inLeft, &out, &outLeft) !=
            size_t(-1))
            break;
        if (errno != EILSEQ && errno != EINVAL)
            break;
        *out++ = '?';
        --outLeft;
        const size_t skipped =
            qMin(inLeft, size_t(utf8SequenceLength(static_cast<unsigned char>(*in))));
        in += skipped;
        inLeft -= skipped;
    }
    output.truncate(out - output.data());
    return output;
}

} // namespace VemoGridLib
