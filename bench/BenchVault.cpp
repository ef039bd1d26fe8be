#include "bench/BenchVault.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include "DiaryKit/Vault/MonthDay.h"

namespace diary::bench {

namespace {

constexpr int kLastYear = 2026;

QString body(int seed, int length) {
    static const QString sentences[] = {
        QStringLiteral("Woke at seven to white roofs and walked along the canal before work. "),
        QStringLiteral("The kettle took its time, so I read two pages and lost the thread.\n"),
        QStringLiteral("- [x] bring the lemon tree inside\n- [ ] find the good gloves\n"),
        QStringLiteral("今天下雨，在家里读书，晚上和妈妈通了电话。"),
        QStringLiteral("朝は霧、昼から晴れ。駅まで歩いて、古い友だちに会った。\n"),
        QStringLiteral("> You don't go back to a date. It comes round.\n\n"),
    };
    QString text;
    for (int i = seed; text.size() < length; ++i) text += sentences[i % std::size(sentences)];
    return text.trimmed();
}

}  // namespace

QString dayFile(int years, int bodyLength) {
    QString text = QStringLiteral("# 01-01\n");
    for (int year = kLastYear - years + 1; year <= kLastYear; ++year) {
        text += QStringLiteral("\n## %1\n\n%2\n").arg(year).arg(body(year, bodyLength));
    }
    return text;
}

void writeVault(const QString& folder) {
    QDir().mkpath(folder);
    MonthDay day{1, 1};
    for (int i = 0; i < MonthDay::cycleLength; ++i, day = day.advanced(1)) {
        QString text = dayFile(50, 700);
        text.replace(QLatin1String("# 01-01"), QLatin1String("# ") + day.headerTitle());
        QFile file(folder + u'/' + day.fileName());
        if (file.open(QIODevice::WriteOnly)) file.write(text.toUtf8());
    }
}

}  // namespace diary::bench
