// What the words and numbers on a date line tell.
#include <algorithm>
#include <array>

#include "DiaryKit/DatedText/DatedTextSplit.h"
#include "DiaryKit/DatedText/LineCursor.h"
#include "DiaryKit/Import/ImportPlanCharacters.h"

namespace diary::DatedTextSplit {

namespace {

// In Chinese, Japanese and English, in lower case.
constexpr std::array<QStringView, 41> kWeatherWords = {
    u"晴",           u"晴天",       u"晴朗",   u"阴",    u"阴天",   u"多云",     u"雨",
    u"小雨",         u"中雨",       u"大雨",   u"暴雨",  u"阵雨",   u"雷阵雨",   u"雪",
    u"小雪",         u"大雪",       u"雾",     u"霾",    u"风",     u"大风",     u"晴转多云",
    u"多云转晴",     u"阴转晴",     u"雨夹雪", u"晴れ",  u"曇り",   u"くもり",   u"快晴",
    u"晴れ時々曇り", u"曇り時々雨", u"sunny",  u"clear", u"cloudy", u"overcast", u"rain",
    u"rainy",        u"snow",       u"snowy",  u"foggy", u"windy",  u"fine"};

bool isWeather(QStringView word) {
    if (word.endsWith(u'℃') || word.endsWith(u'°')) return true;
    const QString lower = word.toString().toLower();
    return std::find(kWeatherWords.begin(), kWeatherWords.end(), QStringView(lower)) !=
           kWeatherWords.end();
}

void append(std::optional<QString>& words, QStringView word) {
    if (!words) {
        words = word.toString();
    } else {
        *words += u' ';
        *words += word;
    }
}

QStringView firstCharacters(QStringView text, int count) {
    qsizetype end = 0;
    forEachCharacter(text, [&](QStringView character) {
        if (count-- > 0) end += character.size();
    });
    return text.first(end);
}

// At most nine digits of ASCII, with a sign or without.
std::optional<int> signedNumber(QStringView text) {
    const bool isNegative = text.startsWith(u'-');
    if (isNegative || text.startsWith(u'+')) text = text.sliced(1);
    const std::optional<int> number = numberOf(text);
    return number && isNegative ? -*number : number;
}

// The first two pieces between slashes and dots that aren't empty.
std::array<QStringView, 2> firstPieces(QStringView text) {
    std::array<QStringView, 2> pieces;
    std::size_t found = 0;
    for (qsizetype start = 0; start < text.size() && found < pieces.size();) {
        const auto isSeparator = [](QChar c) { return c == u'/' || c == u'.'; };
        const auto* const end = std::find_if(text.begin() + start, text.end(), isSeparator);
        const qsizetype length = end - (text.begin() + start);
        if (length > 0) pieces[found++] = text.sliced(start, length);
        start += length + 1;
    }
    return pieces;
}

}  // namespace

std::optional<bool> swappedOrderEvidence(QStringView line) {
    constexpr int kCharacters = 10;
    constexpr int kDigitsOfSecond = 2;
    constexpr int kMonthsOfYear = 12;
    // A character of many units is no digit, and what stands behind it tells nothing more.
    constexpr qsizetype kEnough = 64;
    const QStringView content = text::trimmedOfBlanks(line);
    const QStringView start =
        firstCharacters(content.first(std::min(kEnough, content.size())), kCharacters);
    const auto [first, second] = firstPieces(start);
    const std::optional<int> a = signedNumber(first);
    const std::optional<int> b = signedNumber(firstCharacters(second, kDigitsOfSecond));
    if (!a || !b) return std::nullopt;
    if (*a > kMonthsOfYear && *b <= kMonthsOfYear) return true;
    if (*a <= kMonthsOfYear && *b > kMonthsOfYear) return false;
    return std::nullopt;
}

WeatherAndTitle splitWeather(QStringView text) {
    WeatherAndTitle found;
    for (const QStringView word : text.tokenize(u' ', Qt::SkipEmptyParts)) {
        append(isWeather(word) ? found.weather : found.title, word);
    }
    return found;
}

}  // namespace diary::DatedTextSplit
