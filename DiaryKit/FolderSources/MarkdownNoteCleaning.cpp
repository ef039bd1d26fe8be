// What a note's body loses. Each rule is what its regular expression, named above it, does; those
// tried at every character would take quadratic time on texts made to hurt.
#include <algorithm>
#include <array>

#include "DiaryKit/FolderSources/MarkdownNote.h"
#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Import/HTMLToMarkdown.h"

namespace diary::MarkdownFolderSource {

using namespace Qt::StringLiterals;

namespace {

// The next place of a unit, asked for at places that only grow.
class NextPlace {
public:
    NextPlace(QStringView text, QChar unit) : m_text(text), m_unit(unit) {}

    // The text's length if there is none.
    qsizetype from(qsizetype place) {
        if (m_found < place) {
            const qsizetype found = m_text.indexOf(m_unit, place);
            m_found = found < 0 ? m_text.size() : found;
        }
        return m_found;
    }

private:
    QStringView m_text;
    QChar m_unit;
    qsizetype m_found = -1;
};

// A copy of a text in which some stretches are replaced, in order.
class Rewriting {
public:
    explicit Rewriting(const QString& text) : m_text(text) {}

    // The replacement stands between two `marks`.
    void replace(qsizetype begin, qsizetype end, QStringView replacement,
                 QLatin1String marks = {}) {
        m_result += QStringView(m_text).sliced(m_done, begin - m_done);
        m_result += marks;
        m_result += replacement;
        m_result += marks;
        m_done = end;
        ++m_count;
    }
    [[nodiscard]] int count() const { return m_count; }
    [[nodiscard]] QString result() const {
        QString result = m_result;
        return m_count == 0 ? m_text : result.append(QStringView(m_text).sliced(m_done));
    }

private:
    const QString& m_text;
    QString m_result;
    qsizetype m_done = 0;
    int m_count = 0;
};

bool isAt(QStringView text, qsizetype place, QChar unit) {
    return place < text.size() && text[place] == unit;
}

constexpr std::array kMediaExtensions = {"png"_L1,  "jpg"_L1, "jpeg"_L1, "gif"_L1, "heic"_L1,
                                         "webp"_L1, "svg"_L1, "bmp"_L1,  "tif"_L1, "tiff"_L1,
                                         "mp4"_L1,  "mov"_L1, "m4a"_L1,  "mp3"_L1, "pdf"_L1};

bool startsFolded(QStringView text, QLatin1String word) {
    return text.size() >= word.size() &&
           std::equal(word.begin(), word.end(), text.begin(),
                      [](char w, QChar c) { return c.toCaseFolded() == QLatin1Char(w); });
}

// Whether an embed's target names a medium: "a.png", "a.PNG|200"
bool namesMedium(QStringView target) {
    for (qsizetype dot = target.lastIndexOf(u'.'); dot > 0;
         dot = target.first(dot).lastIndexOf(u'.')) {
        const QStringView behind = target.sliced(dot + 1);
        for (const QLatin1String extension : kMediaExtensions) {
            if (!startsFolded(behind, extension)) continue;
            if (behind.size() == extension.size() || behind[extension.size()] == u'|') return true;
        }
    }
    return false;
}

// Calls `act` with the begin and end of every "![[target]]", which tells whether it took it.
template <typename Act>
void forEachEmbed(QStringView text, Act act) {
    NextPlace closings(text, u']');
    for (qsizetype at = text.indexOf("![["_L1); at >= 0; at = text.indexOf("![["_L1, at)) {
        const qsizetype closing = closings.from(at + 3);
        // An opening between here and there has the same target's end, and fails as this one does.
        if (closing > at + 3 && isAt(text, closing + 1, u']') && act(at, closing + 2)) {
            at = closing + 2;
        } else {
            at = std::min(closing + 1, text.size());
        }
    }
}

// !\[\[[^\]]+\.(?:png|…|pdf)(?:\|[^\]]*)?\]\], in any case
QString withoutMediaEmbeds(const QString& text, int& removed) {
    Rewriting rewriting(text);
    forEachEmbed(text, [&](qsizetype begin, qsizetype end) {
        const QStringView target = QStringView(text).sliced(begin + 3, end - begin - 5);
        if (!namesMedium(target)) return false;
        rewriting.replace(begin, end, {});
        return true;
    });
    removed += rewriting.count();
    return rewriting.result();
}

// !\[\[([^\]]+)\]\]
QString withLinksForEmbeds(const QString& text) {
    Rewriting rewriting(text);
    forEachEmbed(text, [&](qsizetype begin, qsizetype end) {
        rewriting.replace(begin, end, QStringView(text).sliced(begin + 1, end - begin - 1));
        return true;
    });
    return rewriting.result();
}

// !\[[^\]]*\]\([^)]*\)(?:\{[^}]*\})?
QString withoutImages(const QString& text, int& removed) {
    NextPlace brackets(text, u']');
    NextPlace parentheses(text, u')');
    NextPlace braces(text, u'}');
    Rewriting rewriting(text);
    for (qsizetype at = text.indexOf("!["_L1); at >= 0; at = text.indexOf("!["_L1, at)) {
        const qsizetype bracket = brackets.from(at + 2);
        const qsizetype parenthesis =
            isAt(text, bracket + 1, u'(') ? parentheses.from(bracket + 2) : text.size();
        if (parenthesis == text.size()) {
            at = std::min(bracket + 1, text.size());
            continue;
        }
        qsizetype end = parenthesis + 1;
        if (isAt(text, end, u'{') && braces.from(end + 1) < text.size()) {
            end = braces.from(end + 1) + 1;
        }
        rewriting.replace(at, end, {});
        at = end;
    }
    removed += rewriting.count();
    return rewriting.result();
}

// ::([^:\n]+)::, and the same with another mark of two like units
QString withMarks(const QString& text, QLatin1String mark, QLatin1String replacement) {
    Rewriting rewriting(text);
    const QChar unit = mark.front();
    for (qsizetype at = text.indexOf(mark); at >= 0; at = text.indexOf(mark, at)) {
        const qsizetype begin = at + mark.size();
        qsizetype end = begin;
        while (end < text.size() && text[end] != unit && text[end] != u'\n') ++end;
        if (end == begin || !QStringView(text).sliced(end).startsWith(mark)) {
            ++at;
            continue;
        }
        rewriting.replace(at, end + mark.size(), QStringView(text).sliced(begin, end - begin),
                          replacement);
        at = end + mark.size();
    }
    return rewriting.result();
}

// (?<!~)~([^~\n]+)~(?!~)
QString withStrikes(const QString& text) {
    Rewriting rewriting(text);
    for (qsizetype at = text.indexOf(u'~'); at >= 0; at = text.indexOf(u'~', at)) {
        qsizetype end = at + 1;
        while (end < text.size() && text[end] != u'~' && text[end] != u'\n') ++end;
        const bool isLone = at == 0 || text[at - 1] != u'~';
        if (!isLone || end == at + 1 || !isAt(text, end, u'~') || isAt(text, end + 1, u'~')) {
            ++at;
            continue;
        }
        rewriting.replace(at, end + 1, QStringView(text).sliced(at + 1, end - at - 1), "~~"_L1);
        at = end + 1;
    }
    return rewriting.result();
}

// (?:id|collapsed|heading|background-color|card-[a-z-]+)::
bool startsWithProperty(QStringView text) {
    for (const QLatin1String name :
         {"id::"_L1, "collapsed::"_L1, "heading::"_L1, "background-color::"_L1}) {
        if (text.startsWith(name)) return true;
    }
    constexpr QLatin1String kCard("card-");
    if (!text.startsWith(kCard)) return false;
    qsizetype end = kCard.size();
    while (end < text.size() && ((text[end] >= u'a' && text[end] <= u'z') || text[end] == u'-')) {
        ++end;
    }
    return end > kCard.size() && text.sliced(end).startsWith("::"_L1);
}

qsizetype behindWhiteSpace(QStringView text, qsizetype place) {
    while (place < text.size() && text::isWhiteSpace(text[place].unicode())) ++place;
    return place;
}

qsizetype lineEnd(QStringView text, qsizetype place) {
    while (place < text.size() && !text::isNewline(text[place].unicode())) ++place;
    return place;
}

// ^\s*(?:-\s+)?(?:id|…)::.*$, with the anchors at every line
QString withoutProperties(const QString& text) {
    Rewriting rewriting(text);
    for (qsizetype line = 0; line < text.size();) {
        const qsizetype word = behindWhiteSpace(text, line);
        qsizetype name = word;
        if (isAt(text, word, u'-')) {
            const qsizetype behind = behindWhiteSpace(text, word + 1);
            if (behind > word + 1) name = behind;
        }
        const bool isProperty = startsWithProperty(QStringView(text).sliced(name));
        const qsizetype end = lineEnd(text, isProperty ? name : word);
        if (isProperty) rewriting.replace(line, end, {});
        line = isAt(text, end, u'\r') && isAt(text, end + 1, u'\n') ? end + 2 : end + 1;
    }
    return rewriting.result();
}

}  // namespace

Cleaned clean(const QString& text, Flavor flavor) {
    Cleaned cleaned;
    cleaned.text = withoutMediaEmbeds(text, cleaned.removed);
    cleaned.text = withLinksForEmbeds(cleaned.text);
    cleaned.text = withoutImages(cleaned.text, cleaned.removed);
    if (flavor == Flavor::diarly) {
        cleaned.text = withMarks(cleaned.text, "::"_L1, "**"_L1);
        cleaned.text = withMarks(cleaned.text, "__"_L1, QLatin1String());
        cleaned.text = withStrikes(cleaned.text);
    } else if (flavor == Flavor::logseq) {
        cleaned.text = withoutProperties(cleaned.text);
    }
    cleaned.text = HTMLToMarkdown::tidy(cleaned.text);
    return cleaned;
}

}  // namespace diary::MarkdownFolderSource
