// SPDX-License-Identifier: MIT
#include "vb/VbStrings.h"
#include "vb/VbStrings_p.h"

#include "common/VemoError.h"

#include <QList>

#include <algorithm>

namespace VemoGridLib::vb {

namespace {

// A text folded for vbTextCompare, remembering for every folded code unit the index of the
// original code unit it came from, so that positions are reported in the original text.
struct FoldedText
{
    QString text;
    QList<qsizetype> origin; // one entry per code unit of `text`, plus the original length

    // True when a match of `length` units at `pos` starts and ends on whole original characters
    // (so "e" does not match the first half of a folded "é").
    bool isAligned(qsizetype pos, qsizetype length) const
    {
        const bool startAligned = pos == 0 || origin.at(pos) != origin.at(pos - 1);
        const qsizetype end = pos + length;
        return startAligned && origin.at(end) != origin.at(end - 1);
    }
};

// Case folding plus compatibility decomposition: "A", "a", "Ａ" and "ａ" all become "a", and
// half-width katakana decompose like their full-width forms.
QString foldCharacter(QStringView character)
{
    if (character.size() == 1 && character.front().unicode() < 0x80)
        return character.front().toLower();
    return character.toString()
        .normalized(QString::NormalizationForm_KD)
        .toCaseFolded()
        .normalized(QString::NormalizationForm_KD);
}

qsizetype characterWidth(const QString& text, qsizetype pos)
{
    const bool pair = text.at(pos).isHighSurrogate() && pos + 1 < text.size() &&
                      text.at(pos + 1).isLowSurrogate();
    return pair ? 2 : 1;
}

FoldedText foldText(const QString& text)
{
    FoldedText folded;
    for (qsizetype pos = 0; pos < text.size();) {
        const qsizetype width = characterWidth(text, pos);
        const QString piece = foldCharacter(QStringView(text).mid(pos, width));
        folded.text += piece;
        folded.origin.insert(folded.origin.size(), piece.size(), pos);
        pos += width;
    }
    folded.origin.append(text.size());
    return folded;
}

int textCompareInStr(int start, const QString& s1, const QString& s2)
{
    const FoldedText haystack = foldText(s1);
    const QString needle = foldText(s2).text;
    const auto first = std::lower_bound(haystack.origin.cbegin(), haystack.origin.cend() - 1,
                                        qsizetype(start - 1));
    qsizetype from = first - haystack.origin.cbegin();
    for (qsizetype pos; (pos = haystack.text.indexOf(needle, from)) >= 0; from = pos + 1) {
        if (haystack.isAligned(pos, needle.size()))
            return int(haystack.origin.at(pos)) + 1;
    }
    return 0;
}

} // namespace

QString foldForTextCompare(const QString& text)
{
    // Plain ASCII, the common case of a long list, folds to its lower case in one pass.
    const bool ascii =
        std::all_of(text.cbegin(), text.cend(), [](QChar unit) { return unit.unicode() < 0x80; });
    return ascii ? text.toLower() : foldText(text).text;
}

QString Trim(const QString& text)
{
    const QStringView trimmed = TrimmedView(text);
    return trimmed.size() == text.size() ? text : trimmed.toString();
}

QStringView TrimmedView(QStringView text)
{
    while (!text.isEmpty() && text.front() == u' ')
        text = text.sliced(1);
    while (!text.isEmpty() && text.back() == u' ')
        text.chop(1);
    return text;
}

QString LTrim(const QString& text)
{
    qsizetype begin = 0;
    while (begin < text.size() && text.at(begin) == u' ')
        ++begin;
    return text.mid(begin);
}

QString RTrim(const QString& text)
{
    qsizetype end = text.size();
    while (end > 0 && text.at(end - 1) == u' ')
        --end;
    return text.left(end);
}

int InStr(int start, const QString& s1, const QString& s2, CompareMethod compare)
{
    if (start < 1)
        throw VemoError::invalidProcedureCall();
    if (s1.isEmpty())
        return 0;
    // An empty s2 is found at `start`, also just past the end of s1.
    if (s2.isEmpty())
        return start <= s1.size() + 1 ? start : 0;
    if (start > s1.size())
        return 0;
    if (compare == vbTextCompare)
        return textCompareInStr(start, s1, s2);
    return int(s1.indexOf(s2, start - 1, Qt::CaseSensitive)) + 1;
}

int InStr(const QString& s1, const QString& s2)
{
    return InStr(1, s1, s2, vbBinaryCompare);
}

} // namespace VemoGridLib::vb
