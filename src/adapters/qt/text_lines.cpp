#include "adapters/qt/text_lines.h"

#include <QStringList>
#include <array>
#include <span>

namespace orv {
namespace {

using Width = std::function<int(const QString&)>;
using BreakRule = bool (*)(QChar before, QChar after);

constexpr QStringView kClauseEnds = u"。、！？　 ";
constexpr QStringView kOpening = u"「『（【";
constexpr QStringView kClosing = u"」』）】";
/// Honorific prefixes belong to the word that follows.
constexpr QStringView kPrefixes = u"おご";

bool isHiragana(QChar sign) { return sign.script() == QChar::Script_Hiragana; }

bool canBegin(QChar sign) { return !kClauseEnds.contains(sign) && !kClosing.contains(sign); }

bool endsClause(QChar before, QChar after) {
    const bool bracketEnds = kClosing.contains(before) && !isHiragana(after);
    return canBegin(after) && (kClauseEnds.contains(before) || bracketEnds);
}

bool endsPhrase(QChar before, QChar after) {
    const bool wordBegins = isHiragana(before) && !kPrefixes.contains(before) && after.isLetterOrNumber() &&
                            !isHiragana(after) && after != u'ー';
    return endsClause(before, after) || wordBegins || (kOpening.contains(after) && !kOpening.contains(before));
}

bool endsCharacter(QChar before, QChar) { return !before.isHighSurrogate(); }

constexpr std::array<BreakRule, 3> kRules{endsClause, endsPhrase, endsCharacter};

QStringList splitBy(BreakRule rule, const QString& text) {
    QStringList parts;
    qsizetype from = 0;
    for (qsizetype i = 1; i < text.size(); ++i) {
        if (rule(text[i - 1], text[i])) {
            parts << text.mid(from, i - from);
            from = i;
        }
    }
    return parts << text.mid(from);
}

/// Splits by the first rule, and parts that are still too wide by the next one.
QStringList splitToFit(const QString& text, int widest, const Width& measureWidth,
                       std::span<const BreakRule> rules = kRules) {
    if (rules.empty()) {
        return {text};
    }
    QStringList parts;
    for (const QString& part : splitBy(rules.front(), text)) {
        parts << (measureWidth(part) > widest ? splitToFit(part, widest, measureWidth, rules.subspan(1))
                                              : QStringList(part));
    }
    return parts;
}

QStringList filled(const QStringList& parts, int width, const Width& measureWidth) {
    QStringList lines;
    for (const QString& part : parts) {
        if (lines.isEmpty() || measureWidth(lines.back() + part) > width) {
            lines << part;
        } else {
            lines.back() += part;
        }
    }
    return lines;
}

/// Uses the narrowest width that needs no additional line, which makes the lines about equally long.
QStringList balanced(const QString& paragraph, int widest, const Width& measureWidth) {
    const QStringList parts = splitToFit(paragraph, widest, measureWidth);
    const qsizetype fewest = filled(parts, widest, measureWidth).size();
    int tooNarrow = 0;
    int enough = widest;
    while (enough - tooNarrow > 1) {
        const int middle = (tooNarrow + enough) / 2;
        (filled(parts, middle, measureWidth).size() > fewest ? tooNarrow : enough) = middle;
    }
    return filled(parts, enough, measureWidth);
}

}  // namespace

QString brokenIntoLines(const QString& text, int widest, const Width& measureWidth) {
    QStringList lines;
    for (const QString& paragraph : text.split(u'\n')) {
        lines << balanced(paragraph, widest, measureWidth);
    }
    return lines.join(u'\n');
}

}  // namespace orv
