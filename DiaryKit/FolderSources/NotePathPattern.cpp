#include "DiaryKit/FolderSources/NotePathPattern.h"

#include <QtCore/QStringList>
#include <array>

#include "DiaryKit/DatedText/DateLine.h"
#include "DiaryKit/DatedText/LineCursor.h"
#include "DiaryKit/Import/LocalTime.h"

namespace diary {

using namespace Qt::StringLiterals;

namespace {

// Some milliseconds for one path, in ICU's unit of about a millisecond each. A format can be made
// to try a path in more ways than anybody can wait for.
constexpr int32_t kTimeLimit = 5;

// Shares the text's memory, which must outlive the result.
icu::UnicodeString aliased(const QString& text) {
    return {false, reinterpret_cast<const char16_t*>(text.utf16()),
            static_cast<int32_t>(text.size())};
}

// One search in one path.
class Search {
public:
    Search(const icu::RegexPattern& pattern, const QString& path)
        : m_pattern(pattern), m_text(aliased(path)), m_matcher(pattern.matcher(m_text, m_status)) {}

    [[nodiscard]] bool find() {
        if (U_FAILURE(m_status)) return false;
        m_matcher->setTimeLimit(kTimeLimit, m_status);
        return m_matcher->find(m_status) && U_SUCCESS(m_status);
    }

    // What the group took; nothing if the pattern has none of that name, or it took no part.
    [[nodiscard]] QString group(const char* name) const {
        UErrorCode status = U_ZERO_ERROR;
        const int32_t number = m_pattern.groupNumberFromName(name, -1, status);
        if (U_FAILURE(status)) return {};
        const icu::UnicodeString text = m_matcher->group(number, status);
        return U_SUCCESS(status) ? QString::fromUtf16(text.getBuffer(), text.length()) : QString();
    }

private:
    const icu::RegexPattern& m_pattern;
    icu::UnicodeString m_text;
    UErrorCode m_status = U_ZERO_ERROR;
    std::unique_ptr<icu::RegexMatcher> m_matcher;
};

std::optional<int> monthOfName(const QString& name, int year) {
    const auto match = DateLine::match(QString(name + u" 1 "_s + QString::number(year)));
    return match ? std::optional(match->month) : std::nullopt;
}

struct Token {
    QLatin1String name;
    // What it stands for, the name of the group that this is, if it is one, and what follows.
    QLatin1String pattern;
    QLatin1String group = {};
    QLatin1String behind = {};
};

// In the order in which they are tried: MMMM ahead of MM, Do ahead of D.
constexpr std::array kTokens = {
    Token{QLatin1String("YYYY"), QLatin1String("\\d{4}"), QLatin1String("y")},
    Token{QLatin1String("MMMM"), QLatin1String("[^/\\d]+"), QLatin1String("mname")},
    Token{QLatin1String("MMM"), QLatin1String("[^/\\d]+"), QLatin1String("mname")},
    Token{QLatin1String("MM"), QLatin1String("\\d{2}"), QLatin1String("m")},
    Token{QLatin1String("M"), QLatin1String("\\d{1,2}"), QLatin1String("m")},
    Token{QLatin1String("DD"), QLatin1String("\\d{2}"), QLatin1String("d")},
    Token{QLatin1String("Do"), QLatin1String("\\d{1,2}"), QLatin1String("d"),
          QLatin1String("(?:st|nd|rd|th)")},
    Token{QLatin1String("D"), QLatin1String("\\d{1,2}"), QLatin1String("d")},
    Token{QLatin1String("dddd"), QLatin1String("[^/\\d]+")},
    Token{QLatin1String("ddd"), QLatin1String("[^/\\d]+")},
    Token{QLatin1String("ww"), QLatin1String("\\d{2}")},
    Token{QLatin1String("gggg"), QLatin1String("\\d{4}")},
    Token{QLatin1String("YY"), QLatin1String("\\d{2}")},
};

// Every character of ASCII that isn't a letter or digit stands for itself behind a backslash.
QString escaped(QStringView text) {
    QString result;
    for (const QChar c : text) {
        if (c < QChar(0x80) && !c.isLetterOrNumber()) result += u'\\';
        result += c;
    }
    return result;
}

const Token* tokenAt(QStringView format) {
    for (const Token& token : kTokens) {
        if (format.startsWith(token.name)) return &token;
    }
    return nullptr;
}

// A name can stand once in a pattern, so a repeated token is a group without one.
QString expression(const Token& token, QStringList& used) {
    if (token.group.isEmpty()) return token.pattern;
    const bool isNew = !used.contains(token.group);
    if (isNew) used << token.group;
    const QString opening = isNew ? u"(?<"_s + token.group + u'>' : u"(?:"_s;
    return opening + token.pattern + u')' + token.behind;
}

}  // namespace

std::optional<NotePathPattern> NotePathPattern::compiled(const QString& expression) {
    UErrorCode status = U_ZERO_ERROR;
    std::shared_ptr<const icu::RegexPattern> pattern(
        icu::RegexPattern::compile(aliased(expression), 0, status));
    if (U_FAILURE(status)) return std::nullopt;
    return NotePathPattern(std::move(pattern));
}

std::optional<DiaryDay> NotePathPattern::date(const QString& path) const {
    constexpr int kFirstYear = 1900;
    constexpr int kLastYear = 2100;
    Search search(*m_pattern, path);
    if (!search.find()) return std::nullopt;
    const std::optional<int> year = numberOf(search.group("y"));
    if (!year) return std::nullopt;
    std::optional<int> month = numberOf(search.group("m"));
    if (!month) month = monthOfName(search.group("mname"), *year);
    const std::optional<int> day = numberOf(search.group("d"));
    if (!month || !day || *year < kFirstYear || *year > kLastYear ||
        !LocalTime::isValid(*year, *month, *day)) {
        return std::nullopt;
    }
    return DiaryDay{*year, *month, *day};
}

bool NotePathPattern::matches(const QString& path) const {
    return Search(*m_pattern, path).find();
}

std::optional<NotePathPattern> MarkdownFolderSource::momentRegex(const QString& format,
                                                                 const QString& folder) {
    QString pattern = folder.isEmpty() ? u"(?:^|/)"_s : u'^' + escaped(folder) + u'/';
    QStringList used;
    for (qsizetype at = 0; at < format.size();) {
        const QStringView rest = QStringView(format).sliced(at);
        const qsizetype closing = rest.startsWith(u'[') ? rest.indexOf(u']') : -1;
        if (closing > 0) {
            pattern += escaped(rest.sliced(1, closing - 1));
            at += closing + 1;
        } else if (const Token* token = tokenAt(rest)) {
            pattern += expression(*token, used);
            at += token->name.size();
        } else {
            pattern += escaped(rest.first(1));
            ++at;
        }
    }
    return NotePathPattern::compiled(pattern + u"\\.(?:md|markdown)$"_s);
}

}  // namespace diary
