// SPDX-License-Identifier: MIT
#include "vb/VbConversion.h"

#include "vb/VbNumberFormat_p.h"
#include "common/VemoError.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

namespace VemoGridLib::vb {

namespace {

// The general form is fixed below 1e15 while it needs at most 15 decimals, else scientific.
constexpr int ScientificFromExponent = 15;
constexpr int MaxFixedDecimals = 15;
constexpr int MinExponentDigits = 2;
constexpr int ExactPowersOfTen = 22;
// Beyond this an exponent can only overflow or underflow; saturating keeps the arithmetic safe.
constexpr long ExponentLimit = 100000;
constexpr quint64 Max16Bits = 0xFFFF;
constexpr quint64 Max32Bits = 0xFFFFFFFF;

// ---------------------------------------------------------------------------------------------
// Decimal and radix text to numbers, shared by the locale number scanner and Val
// ---------------------------------------------------------------------------------------------

enum class ParseStatus {
    Ok,
    NotNumeric,
    Overflow,
};

struct ParsedNumber
{
    ParseStatus status = ParseStatus::NotNumeric;
    double value = 0;
};

// The character at `pos`, or a null character past the end.
QChar charAt(const QString& text, qsizetype pos)
{
    return pos < text.size() ? text.at(pos) : QChar();
}

bool isAsciiDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

// The value of `c` as a digit in base 16 or 8, or -1.
int radixDigit(QChar c, int base)
{
    const char16_t u = c.toUpper().unicode();
    if (u >= u'0' && u <= u'9' && u - u'0' < base)
        return u - u'0';
    if (base == 16 && u >= u'A' && u <= u'F')
        return u - u'A' + 10;
    return -1;
}

// The base a radix prefix letter ('H' or 'O', any case) names, or 0.
int radixBase(QChar letter)
{
    const QChar upper = letter.toUpper();
    return upper == u'H' ? 16 : upper == u'O' ? 8 : 0;
}

// An &H/&O value is an Integer when it fits 16 bits (so &HFFFF is -1) and a Long when it fits
// 32 bits, as Val reads them; the bits are read as two's complement.
double radixValue(quint64 bits, bool forceLong)
{
    if (bits <= Max16Bits && !forceLong)
        return double(qint16(quint16(bits)));
    return double(qint32(quint32(bits)));
}

// Decimal digits split at the point, with a decimal exponent, as a Double. A result beyond the
// Double range overflows; one below it is 0.
ParsedNumber decimalToDouble(const std::string& integerDigits, const std::string& fractionDigits,
                             long exponent)
{
    std::string text = integerDigits.empty() ? std::string("0") : integerDigits;
    if (!fractionDigits.empty())
        text += '.' + fractionDigits;
    text += 'e' + std::to_string(exponent);
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc())
        return {ParseStatus::Ok, value};
    const std::string all = integerDigits + fractionDigits;
    const size_t firstNonZero = all.find_first_not_of('0');
    if (firstNonZero == std::string::npos)
        return {ParseStatus::Ok, 0};
    const long order = long(integerDigits.size()) - long(firstNonZero) + exponent;
    return order > 0 ? ParsedNumber{ParseStatus::Overflow, 0} : ParsedNumber{ParseStatus::Ok, 0};
}

void appendExponentDigit(long& exponent, QChar digit)
{
    exponent = std::min(exponent * 10 + (digit.unicode() - u'0'), ExponentLimit);
}

// ---------------------------------------------------------------------------------------------
// The locale number scanner of IsNumeric and CDbl
// ---------------------------------------------------------------------------------------------

bool isScannerWhite(QChar c)
{
    // Space, NBSP, and TAB LF VT FF CR (U+0009..U+000D).
    return c == u' ' || c == u'\u00A0' || (c >= u'\t' && c <= u'\r');
}

bool isCurrencySymbol(QChar c, VbLocale locale)
{
    if (locale == VbLocale::ZhCN)
        return c == u'\u00A5' || c == u'\uFFE5';
    return c == u'$';
}

class NumberScanner
{
public:
    NumberScanner(const QString& text, VbLocale locale)
        : m_text(text)
        , m_locale(locale)
    {}

    ParsedNumber scan()
    {
        scanPrefix();
        if (!scanBody() || !scanSuffix())
            return {};
        if (m_radixOverflow)
            return {ParseStatus::Overflow, 0};
        ParsedNumber number = m_radixBase != 0
                                  ? ParsedNumber{ParseStatus::Ok, radixValue(m_radixBits, false)}
                                  : decimalToDouble(m_integerDigits, m_fractionDigits,
                                                    m_exponentNegative ? -m_exponent : m_exponent);
        if (isNegative())
            number.value = -number.value;
        return number;
    }

private:
    QChar peek(qsizetype offset = 0) const
    {
        const qsizetype at = m_pos + offset;
        return at < m_text.size() ? m_text.at(at) : QChar();
    }

    bool isNegative() const { return m_sign == u'-' || m_openParen; }

    // White, one sign, one currency symbol and one '(' in any order.
    void scanPrefix()
    {
        for (;; ++m_pos) {
            const QChar c = peek();
            if (isScannerWhite(c))
                continue;
            if ((c == u'+' || c == u'-') && m_sign.isNull())
                m_sign = c;
            else if (isCurrencySymbol(c, m_locale) && !m_currency)
                m_currency = true;
            else if (c == u'(' && !m_openParen)
                m_openParen = true;
            else
                return;
        }
    }

    // A currency sign never stands before a radix prefix: "$&HA" is no number.
    bool scanBody() { return peek() == u'&' ? !m_currency && scanRadix() : scanDecimal(); }

    bool scanRadix()
    {
        m_radixBase = radixBase(peek(1));
        if (m_radixBase == 0)
            return false;
        m_pos += 2;
        const qsizetype start = m_pos;
        for (int digit; (digit = radixDigit(peek(), m_radixBase)) >= 0; ++m_pos) {
            m_radixBits = m_radixBits * quint64(m_radixBase) + quint64(digit);
            if (m_radixBits > Max32Bits) {
                m_radixOverflow = true;
                m_radixBits = 0;
            }
        }
        return m_pos > start;
    }

    // Digits with thousands separators after the first digit, at most one point, an exponent.
    bool scanDecimal()
    {
        for (;; ++m_pos) {
            const QChar c = peek();
            if (isAsciiDigit(c))
                m_integerDigits += char(c.unicode());
            else if (c != u',' || m_integerDigits.empty())
                break;
        }
        if (peek() == u'.') {
            for (++m_pos; isAsciiDigit(peek()); ++m_pos)
                m_fractionDigits += char(peek().unicode());
        }
        if (m_integerDigits.empty() && m_fractionDigits.empty())
            return false;
        scanExponent();
        return true;
    }

    // An 'e' that is not followed by digits is left for the suffix, which then rejects it.
    void scanExponent()
    {
        if (peek() != u'e' && peek() != u'E')
            return;
        const QChar sign = peek(1);
        const qsizetype signWidth = (sign == u'+' || sign == u'-') ? 1 : 0;
        if (!isAsciiDigit(peek(1 + signWidth)))
            return;
        m_exponentNegative = sign == u'-';
        for (m_pos += 1 + signWidth; isAsciiDigit(peek()); ++m_pos)
            appendExponentDigit(m_exponent, peek());
    }

    // White, one trailing sign (when there was no leading one), currency symbols and the ')'
    // closing a leading '('; the text must be used up. A sign together with parentheses is
    // rejected.
    bool scanSuffix()
    {
        bool closedParen = false;
        for (; m_pos < m_text.size(); ++m_pos) {
            const QChar c = peek();
            if (isScannerWhite(c) || isCurrencySymbol(c, m_locale))
                continue;
            if ((c == u'+' || c == u'-') && m_sign.isNull())
                m_sign = c;
            else if (c == u')' && m_openParen && !closedParen)
                closedParen = true;
            else
                return false;
        }
        return closedParen == m_openParen && !(m_openParen && !m_sign.isNull());
    }

    const QString& m_text;
    const VbLocale m_locale;
    qsizetype m_pos = 0;
    QChar m_sign;
    bool m_currency = false;
    bool m_openParen = false;
    std::string m_integerDigits;
    std::string m_fractionDigits;
    long m_exponent = 0;
    bool m_exponentNegative = false;
    int m_radixBase = 0;
    quint64 m_radixBits = 0;
    bool m_radixOverflow = false;
};

// ---------------------------------------------------------------------------------------------
// Val: the longest number at the start of a text, locale-independent
// ---------------------------------------------------------------------------------------------

QString withoutBlanks(const QString& text)
{
    QString compact;
    compact.reserve(text.size());
    for (const QChar c : text) {
        if (c != u' ' && c != u'\t' && c != u'\n')
            compact += c;
    }
    return compact;
}

double valRadix(const QString& text)
{
    const int base = radixBase(charAt(text, 1));
    if (base == 0)
        return 0;
    quint64 bits = 0;
    qsizetype pos = 2;
    for (int digit; pos < text.size() && (digit = radixDigit(text.at(pos), base)) >= 0; ++pos) {
        bits = bits * quint64(base) + quint64(digit);
        if (bits > Max32Bits)
            throw VemoError::overflow();
    }
    const bool longSuffix = pos < text.size() && text.at(pos) == u'&';
    return radixValue(bits, longSuffix);
}

class ValReader
{
public:
    explicit ValReader(const QString& text)
        : m_text(text)
    {}

    double read()
    {
        const bool negative = peek() == u'-';
        if (peek() == u'-' || peek() == u'+')
            ++m_pos;
        const bool hasPoint = readMantissa();
        if (m_integerDigits.empty() && m_fractionDigits.empty())
            return 0;
        readExponent();
        // An Integer type suffix cannot follow a fraction: "50.5%" is a type mismatch.
        if (peek() == u'%' && hasPoint)
            throw VemoError::typeMismatch();
        const ParsedNumber number = decimalToDouble(m_integerDigits, m_fractionDigits, m_exponent);
        if (number.status == ParseStatus::Overflow)
            throw VemoError::overflow();
        return negative ? -number.value : number.value;
    }

private:
    QChar peek(qsizetype offset = 0) const { return charAt(m_text, m_pos + offset); }

    void readDigits(std::string& digits)
    {
        for (; isAsciiDigit(peek()); ++m_pos)
            digits += char(peek().unicode());
    }

    bool readMantissa()
    {
        readDigits(m_integerDigits);
        if (peek() != u'.')
            return false;
        ++m_pos;
        readDigits(m_fractionDigits);
        return true;
    }

    // E or D (VB's Double exponent letter), an optional sign, at least one digit.
    void readExponent()
    {
        const QChar letter = peek().toUpper();
        if (letter != u'E' && letter != u'D')
            return;
        const QChar sign = peek(1);
        const qsizetype signWidth = (sign == u'+' || sign == u'-') ? 1 : 0;
        if (!isAsciiDigit(peek(1 + signWidth)))
            return;
        long exponent = 0;
        for (m_pos += 1 + signWidth; isAsciiDigit(peek()); ++m_pos)
            appendExponentDigit(exponent, peek());
        m_exponent = sign == u'-' ? -exponent : exponent;
    }

    const QString& m_text;
    qsizetype m_pos = 0;
    std::string m_integerDigits;
    std::string m_fractionDigits;
    long m_exponent = 0;
};

// ---------------------------------------------------------------------------------------------
// CStr: the general number form of a Double
// ---------------------------------------------------------------------------------------------

QString fixedNotation(const detail::DecimalDigits& number)
{
    const std::string integer = number.integerDigits();
    const std::string fraction = number.fractionDigits();
    QString text = QString::fromLatin1(integer.empty() ? "0" : integer.c_str());
    if (!fraction.empty())
        text += u'.' + QString::fromLatin1(fraction.c_str());
    return text;
}

QString scientificNotation(const detail::DecimalDigits& number)
{
    const int exponent = number.pointPos - 1;
    QString text(QLatin1Char(number.digits.front()));
    if (number.digits.size() > 1)
        text += u'.' + QString::fromLatin1(number.digits.c_str() + 1);
    text += exponent < 0 ? QStringLiteral("E-") : QStringLiteral("E+");
    return text + QString::number(std::abs(exponent)).rightJustified(MinExponentDigits, u'0');
}

// VB6 printed the C runtime's texts for values it cannot otherwise write.
QString nonFiniteText(double value)
{
    if (std::isnan(value))
        return QStringLiteral("-1.#IND");
    return value < 0 ? QStringLiteral("-1.#INF") : QStringLiteral("1.#INF");
}

template <typename Integer>
Integer roundToInteger(double value)
{
    const double rounded = std::nearbyint(value);
    if (!(rounded >= double(std::numeric_limits<Integer>::min()) &&
          rounded <= double(std::numeric_limits<Integer>::max())))
        throw VemoError::overflow();
    return Integer(rounded);
}

double powerOfTen(int exponent)
{
    if (exponent > ExactPowersOfTen)
        return std::pow(10.0, exponent);
    double power = 1;
    for (int i = 0; i < exponent; ++i)
        power *= 10;
    return power;
}

ParsedNumber scanNumber(const QString& text, VbLocale locale)
{
    return NumberScanner(text, locale).scan();
}

/// The correctly rounded value of a plain decimal's sign, digits and point (thousands
/// separators dropped), by std::from_chars; false past 62 characters.
bool readDecimalDigits(QStringView digits, bool negative, double& value)
{
    constexpr qsizetype MaxLength = 64;
    std::array<char, MaxLength> buffer;
    qsizetype length = 0;
    if (negative)
        buffer[length++] = '-';
    for (const QChar c : digits) {
        if (c == u',')
            continue;
        if (length >= MaxLength - 1)
            return false;
        buffer[length++] = char(c.unicode());
    }
    const auto result = std::from_chars(buffer.data(), buffer.data() + length, value);
    return result.ec == std::errc() && result.ptr == buffer.data() + length;
}

} // namespace

bool ReadPlainDecimal(QStringView text, double& value)
{
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && isScannerWhite(text[begin]))
        ++begin;
    while (end > begin && isScannerWhite(text[end - 1]))
        --end;
    bool negative = false;
    if (begin < end && (text[begin] == u'-' || text[begin] == u'+')) {
        negative = text[begin] == u'-';
        ++begin;
    }
    // The digits as one whole number and the count of digits after the point, while the number
    // stays exact in a double: most cells (prices, quantities) take this way.
    constexpr std::uint64_t ExactLimit = std::uint64_t(1) << 53;
    std::uint64_t mantissa = 0;
    int digits = 0;
    int scale = 0;
    bool point = false;
    bool exact = true;
    for (qsizetype at = begin; at < end; ++at) {
        const char16_t c = text[at].unicode();
        if (c >= u'0' && c <= u'9') {
            mantissa = mantissa * 10 + std::uint64_t(c - u'0');
            exact = exact && mantissa < ExactLimit;
            ++digits;
            scale += point ? 1 : 0;
        } else if (c == u',' && digits > 0 && !point) {
            continue;
        } else if (c == u'.' && !point) {
            point = true;
        } else {
            return false;
        }
    }
    if (digits == 0)
        return false;
    // Exact digits over an exact power of ten: one division, so one rounding, the correctly
    // rounded value from_chars gives as well (Clinger's fast path).
    constexpr std::array<double, 23> PowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                    1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                    1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    if (exact && scale < int(PowersOfTen.size())) {
        const double magnitude = double(mantissa) / PowersOfTen[std::size_t(scale)];
        value = negative ? -magnitude : magnitude;
        return true;
    }
    return readDecimalDigits(text.sliced(begin, end - begin), negative, value);
}

QString CStr(double value)
{
    if (!std::isfinite(value))
        return nonFiniteText(value);
    const detail::DecimalDigits number = detail::decimalDigits(value);
    if (number.isZero())
        return QStringLiteral("0");
    const int exponent = number.pointPos - 1;
    const int decimals = int(number.digits.size()) - number.pointPos;
    const bool fixed = exponent < ScientificFromExponent && decimals <= MaxFixedDecimals;
    const QString text = fixed ? fixedNotation(number) : scientificNotation(number);
    return value < 0 ? u'-' + text : text;
}

bool IsNumeric(const QString& text, VbLocale locale)
{
    return scanNumber(text, locale).status == ParseStatus::Ok;
}

double CDbl(const QString& text, VbLocale locale)
{
    const ParsedNumber number = scanNumber(text, locale);
    if (number.status == ParseStatus::NotNumeric)
        throw VemoError::typeMismatch();
    if (number.status == ParseStatus::Overflow)
        throw VemoError::overflow();
    return number.value;
}

std::optional<double> NumericValue(QStringView text, VbLocale locale)
{
    if (double value = 0; ReadPlainDecimal(text, value))
        return value;
    // An empty text is never numeric: no copy for the scanner then.
    if (text.isEmpty())
        return std::nullopt;
    const ParsedNumber number = scanNumber(text.toString(), locale);
    if (number.status != ParseStatus::Ok)
        return std::nullopt;
    return number.value;
}

double Val(const QString& text)
{
    const QString compact = withoutBlanks(text);
    if (compact.startsWith(u'&'))
        return valRadix(compact);
    return ValReader(compact).read();
}

double Round(double value, int decimals)
{
    if (decimals < 0)
        throw VemoError::invalidProcedureCall();
    const double scale = powerOfTen(decimals);
    const double product = value * scale;
    if (!std::isfinite(product))
        return value;
    return std::nearbyint(product) / scale;
}

qint32 CLng(double value)
{
    return roundToInteger<qint32>(value);
}

qint32 CLng(const QString& text, VbLocale locale)
{
    return CLng(CDbl(text, locale));
}

qint16 CInt(double value)
{
    return roundToInteger<qint16>(value);
}

bool CBool(const QString& text, VbLocale locale)
{
    if (text.compare(u"True", Qt::CaseInsensitive) == 0 || text == u"#TRUE#")
        return true;
    if (text.compare(u"False", Qt::CaseInsensitive) == 0 || text == u"#FALSE#")
        return false;
    return CDbl(text, locale) != 0;
}

} // namespace VemoGridLib::vb
