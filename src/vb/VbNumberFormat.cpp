// SPDX-License-Identifier: MIT
#include "vb/VbNumberFormat_p.h"

#include "vb/VbFormatSyntax_p.h"

#include <QList>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <utility>

namespace VemoGridLib::vb::detail {

namespace {

constexpr int GeneralSignificantDigits = 15;
constexpr int GroupSize = 3;
constexpr int PercentShift = 2;
constexpr int ThousandsShift = 3;

void stripTrailingZeros(std::string& digits)
{
    while (!digits.empty() && digits.back() == '0')
        digits.pop_back();
}

// ---------------------------------------------------------------------------------------------
// Tokenizer
// ---------------------------------------------------------------------------------------------

enum class TokenType {
    IntegerDigit,
    FractionDigit,
    DecimalPoint,
    Exponent,
    Literal,
};

struct Token
{
    TokenType type = TokenType::Literal;
    QString literal; // the text of a Literal
    int index = 0;   // position of a digit placeholder among those of its part
};

struct ExponentFormat
{
    QChar letter;
    bool alwaysSign = false;
    int minDigits = 1;
};

// One section of a number format, tokenized.
struct NumberSection
{
    QList<Token> tokens;
    int integerPlaceholders = 0;
    int fractionPlaceholders = 0;
    int minIntegerDigits = 0;
    int minFractionDigits = 0;
    bool grouping = false;
    int decimalShift = 0; // +2 per '%', -3 per scaling ','
    std::optional<ExponentFormat> exponent;
};

class SectionParser
{
public:
    explicit SectionParser(const QString& section)
        : m_text(section)
    {}

    NumberSection parse()
    {
        while (m_pos < m_text.size())
            parseNext();
        settlePendingCommas();
        if (m_firstIntegerZero >= 0)
            m_section.minIntegerDigits = m_section.integerPlaceholders - m_firstIntegerZero;
        if (m_section.exponent)
            m_section.exponent->minDigits = std::max(1, m_exponentZeros);
        return m_section;
    }

private:
    void parseNext()
    {
        if (const std::optional<FormatLiteral> literal = literalAt(m_text, m_pos)) {
            appendLiteral(literal->text);
            m_pos = literal->end;
            return;
        }
        const QChar c = m_text.at(m_pos);
        if (c == u'0' || c == u'#')
            parsePlaceholder(c == u'0');
        else if (c == u'.' && !m_inFraction && !m_section.exponent)
            parsePoint();
        else if (c == u',')
            parseComma();
        else if ((c == u'E' || c == u'e') && tryParseExponent(c))
            return;
        else
            parseLiteralChar(c);
    }

    void parseLiteralChar(QChar c)
    {
        // '%' prints itself and scales by 100.
        if (c == u'%')
            m_section.decimalShift += PercentShift;
        appendLiteral(c);
        ++m_pos;
    }

    void parsePlaceholder(bool zero)
    {
        ++m_pos;
        m_seenNumberToken = true;
        if (m_section.exponent) {
            m_exponentZeros += zero ? 1 : 0;
            return;
        }
        if (m_inFraction) {
            if (zero)
                m_section.minFractionDigits = m_section.fractionPlaceholders + 1;
            m_section.tokens.append(
                {TokenType::FractionDigit, {}, m_section.fractionPlaceholders++});
            return;
        }
        // A ',' followed by more integer placeholders turns grouping on.
        if (m_pendingCommas > 0)
            m_section.grouping = true;
        m_pendingCommas = 0;
        if (zero && m_firstIntegerZero < 0)
            m_firstIntegerZero = m_section.integerPlaceholders;
        m_section.tokens.append({TokenType::IntegerDigit, {}, m_section.integerPlaceholders++});
    }

    void parsePoint()
    {
        ++m_pos;
        m_seenNumberToken = true;
        settlePendingCommas();
        m_inFraction = true;
        m_section.tokens.append({TokenType::DecimalPoint, {}, 0});
    }

    void parseComma()
    {
        ++m_pos;
        // Before any placeholder a ',' is a plain character; after the point it has no use.
        if (!m_seenNumberToken)
            appendLiteral(QStringLiteral(","));
        else if (!m_inFraction && !m_section.exponent)
            ++m_pendingCommas;
    }

    bool tryParseExponent(QChar letter)
    {
        const QChar sign = m_pos + 1 < m_text.size() ? m_text.at(m_pos + 1) : QChar();
        if (!m_seenNumberToken || m_section.exponent || (sign != u'+' && sign != u'-'))
            return false;
        settlePendingCommas();
        m_section.exponent = ExponentFormat{letter, sign == u'+', 1};
        m_section.tokens.append({TokenType::Exponent, {}, 0});
        m_pos += 2;
        return true;
    }

    // Commas with no integer placeholder after them divide by 1000 each ("#,##0," and
    // "##0,,").
    void settlePendingCommas()
    {
        m_section.decimalShift -= ThousandsShift * m_pendingCommas;
        m_pendingCommas = 0;
    }

    void appendLiteral(const QString& text)
    {
        if (!m_section.tokens.isEmpty() && m_section.tokens.last().type == TokenType::Literal)
            m_section.tokens.last().literal += text;
        else
            m_section.tokens.append({TokenType::Literal, text, 0});
    }

    const QString& m_text;
    qsizetype m_pos = 0;
    NumberSection m_section;
    int m_pendingCommas = 0;
    int m_firstIntegerZero = -1;
    int m_exponentZeros = 0;
    bool m_inFraction = false;
    bool m_seenNumberToken = false;
};

// ---------------------------------------------------------------------------------------------
// Renderer
// ---------------------------------------------------------------------------------------------

// The digit strings that fill a section's placeholders.
struct SectionDigits
{
    std::string integer;
    std::string fraction;
    int exponent = 0;
};

SectionDigits fixedDigits(DecimalDigits number, const NumberSection& section)
{
    number.roundToDecimals(section.fractionPlaceholders);
    return {number.integerDigits(), number.fractionDigits(), 0};
}

// The integer placeholders take exactly that many leading digits; the exponent absorbs the rest
// ("#000.0000e+0" gives 4500.0010e+42 for 4.500001e45).
SectionDigits scientificDigits(DecimalDigits number, const NumberSection& section)
{
    if (number.isZero())
        return {};
    const int integerCount = section.integerPlaceholders;
    const int fractionCount = section.fractionPlaceholders;
    number.roundToSignificant(integerCount + fractionCount);
    if (number.isZero())
        return {};
    std::string all = number.digits;
    if (all.size() < size_t(integerCount + fractionCount))
        all.resize(size_t(integerCount + fractionCount), '0');
    return {all.substr(0, size_t(integerCount)),
            all.substr(size_t(integerCount), size_t(fractionCount)),
            number.pointPos - integerCount};
}

SectionDigits sectionDigits(double value, const NumberSection& section)
{
    DecimalDigits number = decimalDigits(value);
    if (!number.isZero())
        number.pointPos += section.decimalShift;
    SectionDigits digits =
        section.exponent ? scientificDigits(number, section) : fixedDigits(number, section);
    if (digits.integer.size() < size_t(section.minIntegerDigits))
        digits.integer.insert(0, size_t(section.minIntegerDigits) - digits.integer.size(), '0');
    stripTrailingZeros(digits.fraction);
    if (digits.fraction.size() < size_t(section.minFractionDigits))
        digits.fraction.resize(size_t(section.minFractionDigits), '0');
    return digits;
}

class SectionRenderer
{
public:
    SectionRenderer(const NumberSection& section, SectionDigits digits)
        : m_section(section)
        , m_digits(std::move(digits))
    {}

    QString render()
    {
        for (const Token& token : m_section.tokens)
            renderToken(token);
        return m_out;
    }

private:
    void renderToken(const Token& token)
    {
        switch (token.type) {
        case TokenType::IntegerDigit:
            renderIntegerPlaceholder(token.index);
            break;
        case TokenType::FractionDigit:
            if (size_t(token.index) < m_digits.fraction.size())
                m_out += QLatin1Char(m_digits.fraction[size_t(token.index)]);
            break;
        case TokenType::DecimalPoint:
            m_out += u'.';
            break;
        case TokenType::Exponent:
            renderExponent();
            break;
        case TokenType::Literal:
            m_out += token.literal;
            break;
        }
    }

    // Integer digits fill the placeholders from the right; the leftmost placeholder also takes
    // every digit that has no placeholder of its own (the integer part is never truncated).
    void renderIntegerPlaceholder(int index)
    {
        const int length = int(m_digits.integer.size());
        const int end = index + 1 + length - m_section.integerPlaceholders;
        const int begin = index == 0 ? 0 : end - 1;
        for (int i = std::max(begin, 0); i < end; ++i)
            renderIntegerDigit(i, length);
    }

    void renderIntegerDigit(int i, int length)
    {
        m_out += QLatin1Char(m_digits.integer[size_t(i)]);
        const int placesLeft = length - 1 - i;
        if (m_section.grouping && placesLeft > 0 && placesLeft % GroupSize == 0)
            m_out += u',';
    }

    void renderExponent()
    {
        const ExponentFormat& fmt = *m_section.exponent;
        m_out += fmt.letter;
        if (m_digits.exponent < 0)
            m_out += u'-';
        else if (fmt.alwaysSign)
            m_out += u'+';
        m_out += QString::number(std::abs(m_digits.exponent)).rightJustified(fmt.minDigits, u'0');
    }

    const NumberSection& m_section;
    SectionDigits m_digits;
    QString m_out;
};

// The section for the value and whether it needs the automatic minus: with two or more
// sections a negative value uses the second without one; an empty section falls back to the
// first. The choice uses the value before rounding.
std::pair<QString, bool> chooseSection(double value, const QStringList& sections)
{
    const auto usable = [&sections](int index) {
        return index < sections.size() && !sections.at(index).isEmpty();
    };
    if (value < 0)
        return usable(1) ? std::pair{sections.at(1), false} : std::pair{sections.at(0), true};
    if (value == 0 && usable(2))
        return {sections.at(2), false};
    return {sections.at(0), false};
}

} // namespace

// ---------------------------------------------------------------------------------------------
// DecimalDigits
// ---------------------------------------------------------------------------------------------

std::string DecimalDigits::integerDigits() const
{
    if (pointPos <= 0)
        return {};
    std::string integer = digits.substr(0, size_t(pointPos));
    integer.resize(size_t(pointPos), '0');
    return integer;
}

std::string DecimalDigits::fractionDigits() const
{
    if (int(digits.size()) <= pointPos)
        return {};
    if (pointPos >= 0)
        return digits.substr(size_t(pointPos));
    return std::string(size_t(-pointPos), '0') + digits;
}

void DecimalDigits::roundToSignificant(int keep)
{
    if (keep < 0) {
        *this = {};
        return;
    }
    if (size_t(keep) >= digits.size())
        return;
    const bool roundUp = digits[size_t(keep)] >= '5';
    digits.resize(size_t(keep));
    if (roundUp) {
        while (!digits.empty() && digits.back() == '9')
            digits.pop_back();
        if (digits.empty()) {
            digits.assign(1, '1');
            ++pointPos;
        } else {
            ++digits.back();
        }
    }
    stripTrailingZeros(digits);
}

DecimalDigits decimalDigits(double value)
{
    const double magnitude = std::fabs(value);
    if (magnitude == 0 || !std::isfinite(magnitude))
        return {};
    // "d.dddddddddddddde±x": 15 significant digits, correctly rounded.
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, magnitude,
                                      std::chars_format::scientific, GeneralSignificantDigits - 1);
    const std::string_view text(buffer, size_t(result.ptr - buffer));
    const size_t exponentAt = text.find('e');
    DecimalDigits number;
    for (const char c : text.substr(0, exponentAt)) {
        if (c != '.')
            number.digits += c;
    }
    int exponent = 0;
    const std::string_view exponentText = text.substr(exponentAt + 1);
    const size_t skipPlus = exponentText.front() == '+' ? 1 : 0;
    std::from_chars(exponentText.data() + skipPlus, exponentText.data() + exponentText.size(),
                    exponent);
    number.pointPos = exponent + 1;
    stripTrailingZeros(number.digits);
    return number;
}

// ---------------------------------------------------------------------------------------------
// Formatting
// ---------------------------------------------------------------------------------------------

QString formatNumber(double value, const QString& format)
{
    const auto [sectionText, autoMinus] = chooseSection(value, formatSections(format));
    const NumberSection section = SectionParser(sectionText).parse();
    const QString text = SectionRenderer(section, sectionDigits(value, section)).render();
    return autoMinus ? u'-' + text : text;
}

} // namespace VemoGridLib::vb::detail
