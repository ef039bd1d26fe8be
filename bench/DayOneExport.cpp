#include "bench/DayOneExport.h"

#include <QtCore/QDateTime>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QUuid>
#include <random>

#include "tests/kit/import/ZipBuilder.h"

namespace diary::bench {

namespace {

// Five to six entries a day; ten years are 20,000 entries.
constexpr qint64 kFirst = 1'420'070'400;  // 1 January 2015
constexpr qint64 kStep = qint64{263} * 60;

// Words that a packer finds about as hard as those of a language: a diary shrinks to a third or
// so, and an archive that shrinks far more is refused.
class Words {
public:
    explicit Words(unsigned seed) : m_random(seed) {}

    int below(int bound) { return static_cast<int>(m_random() % static_cast<unsigned>(bound)); }

    QString english() {
        static const char* const syllables[] = {"wa",  "ter", "lo", "ken", "mi",  "rou", "da",
                                                "ste", "ing", "pa", "cor", "ly",  "hu",  "ben",
                                                "sha", "tio", "ve", "nor", "gle", "ost"};
        QString word;
        for (int i = 1 + below(3); i >= 0; --i) {
            word += QLatin1String(syllables[below(static_cast<int>(std::size(syllables)))]);
        }
        return word;
    }

    QString chinese() {
        QString words;
        for (int i = 8 + below(20); i >= 0; --i) {
            words += QChar(static_cast<char16_t>(0x4E00 + below(2500)));
        }
        return words;
    }

private:
    std::minstd_rand m_random;
};

QString sentence(Words& words) {
    if (words.below(3) == 0) return words.chinese() + u'。';
    QString text = words.english();
    for (int i = 4 + words.below(10); i > 0; --i) text += u' ' + words.english();
    return text + QLatin1String("\\. ");
}

QString paragraph(Words& words) {
    static const QLatin1String beginnings[] = {QLatin1String(""),
                                               QLatin1String(""),
                                               QLatin1String(""),
                                               QLatin1String("## "),
                                               QLatin1String("- [ ] "),
                                               QLatin1String("> "),
                                               QLatin1String("**Later\\:** ")};
    QString text = beginnings[words.below(static_cast<int>(std::size(beginnings)))];
    for (int i = 1 + words.below(4); i > 0; --i) text += sentence(words);
    if (words.below(9) == 0) text += QLatin1String("[that evening](dayone://view?entryId=5A)");
    return text + QLatin1String("\n\n");
}

// From 500 to 2,000 characters, the same for the same number.
QString text(int number) {
    Words words(static_cast<unsigned>(number) + 1);
    const int length = 500 + words.below(1400);
    QString text;
    if (number % 3 == 0) text = QStringLiteral("# Number %1\n\n").arg(number);
    while (text.size() < length) text += paragraph(words);
    if (number % 7 == 0) text += QStringLiteral("![](dayone-moment://%1)").arg(number);
    return text;
}

QString identifier(int number) {
    return QUuid::createUuidV5(QUuid(), QByteArray::number(number))
        .toString(QUuid::Id128)
        .toUpper();
}

QJsonObject location(int number) {
    static const QString cities[] = {QStringLiteral("Hangzhou"), QStringLiteral("Leipzig"),
                                     QStringLiteral("大理市")};
    return {{QStringLiteral("localityName"), cities[number % 3]},
            {QStringLiteral("placeName"), QStringLiteral("Lakeside %1").arg(number % 40)},
            {QStringLiteral("administrativeArea"), QStringLiteral("Zhejiang")},
            {QStringLiteral("country"), QStringLiteral("China")},
            {QStringLiteral("latitude"), 30.25 + number % 100 * 0.001},
            {QStringLiteral("longitude"), 120.125 + number % 100 * 0.001},
            {QStringLiteral("region"),
             QJsonObject{{QStringLiteral("radius"), 75},
                         {QStringLiteral("identifier"), QStringLiteral("<+30.25,+120.12>")}}}};
}

QJsonObject weather(int number) {
    return {{QStringLiteral("conditionsDescription"), QStringLiteral("Mostly Clear")},
            {QStringLiteral("temperatureCelsius"), number % 350 * 0.1},
            {QStringLiteral("weatherCode"), QStringLiteral("mostly-clear")},
            {QStringLiteral("windSpeedKPH"), 8.5},
            {QStringLiteral("relativeHumidity"), number % 100},
            {QStringLiteral("pressureMB"), 1013.25}};
}

QJsonObject entry(int number) {
    const QString written = text(number);
    const QDateTime moment = QDateTime::fromSecsSinceEpoch(kFirst + number * kStep, Qt::UTC);
    const QJsonObject richText{
        {QStringLiteral("contents"),
         QJsonArray{QJsonObject{{QStringLiteral("text"), written},
                                {QStringLiteral("attributes"),
                                 QJsonObject{{QStringLiteral("line"), QJsonObject()}}}}}},
        {QStringLiteral("meta"), QJsonObject{{QStringLiteral("version"), 1}}}};
    QJsonObject one{
        {QStringLiteral("uuid"), identifier(number)},
        {QStringLiteral("creationDate"), moment.toString(Qt::ISODate)},
        {QStringLiteral("modifiedDate"), moment.addSecs(600).toString(Qt::ISODate)},
        {QStringLiteral("timeZone"), QStringLiteral("Asia/Shanghai")},
        {QStringLiteral("creationDevice"), QStringLiteral("Pocket")},
        {QStringLiteral("isAllDay"), number % 50 == 0},
        {QStringLiteral("isPinned"), false},
        {QStringLiteral("starred"), number % 9 == 0},
        {QStringLiteral("duration"), 0},
        {QStringLiteral("text"), written},
        {QStringLiteral("location"), location(number)},
        {QStringLiteral("weather"), weather(number)},
        {QStringLiteral("tags"), QJsonArray{QStringLiteral("walks"), QStringLiteral("家")}}};
    if (number % 2 == 0) {
        one[QStringLiteral("richText")] =
            QString::fromUtf8(QJsonDocument(richText).toJson(QJsonDocument::Compact));
    }
    if (number % 7 == 0) {
        one[QStringLiteral("photos")] =
            QJsonArray{QJsonObject{{QStringLiteral("identifier"), identifier(-number)},
                                   {QStringLiteral("type"), QStringLiteral("jpeg")},
                                   {QStringLiteral("md5"), identifier(number).toLower()}}};
    }
    return one;
}

}  // namespace

QByteArray dayOneJournal(int entries) {
    QJsonArray all;
    for (int i = 0; i < entries; ++i) all.append(entry(i));
    return QJsonDocument({{QStringLiteral("metadata"),
                           QJsonObject{{QStringLiteral("version"), QStringLiteral("1.0")}}},
                          {QStringLiteral("entries"), all}})
        .toJson(QJsonDocument::Indented);
}

QByteArray dayOneArchive(const QByteArray& journal) {
    testing::ZipBuilder zip;
    zip.add(testing::ZipBuilder::packed("Journal.json", journal));
    zip.add(testing::ZipBuilder::stored("photos/0.jpeg", QByteArray(20'000, 'p')));
    return zip.bytes();
}

}  // namespace diary::bench
