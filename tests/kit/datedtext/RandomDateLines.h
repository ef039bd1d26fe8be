// Lines that open with a date in any form, nearly or wholly, and texts made of them. Deterministic
// for a seed.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <random>

namespace diary::test {

class RandomDateLines {
public:
    explicit RandomDateLines(unsigned seed) : m_random(seed) {}

    // A number from 0 to `bound` - 1.
    int below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(m_random); }

    // A date line with up to two changes of single characters, in half of the cases none.
    QString line() {
        QString text = marks() + date() + behind();
        for (int changes = below(4) - 1; changes > 0; --changes) mutate(text);
        return text;
    }

    // Some lines, dated and plain and blank, with line ends of all kinds.
    QString text(int mostLines) {
        QString text;
        for (int i = below(mostLines + 1); i > 0; --i) {
            const int kind = below(4);
            if (kind == 0) text += line();
            if (kind == 1) text += plainLine();
            text += one({u"\n", u"\n", u"\n", u"\r\n", u"\r"});
        }
        return text;
    }

    // A line without any digit, letter of the Latin alphabet, or anything else that dates have.
    QString plainLine() {
        QString text;
        for (int i = below(4); i >= 0; --i) text += one({u"下雨了", u"Ωραία", u"🙂", u"é", u"、"});
        return text;
    }

private:
    QString one(std::initializer_list<QStringView> choices) {
        return (choices.begin() + below(static_cast<int>(choices.size())))->toString();
    }

    bool chance(int oneIn) { return below(oneIn) == 0; }

    QString marks() {
        return chance(2) ? QString()
                         : one({u" ", u"\t", u"　", u"# ", u"## ", u"**", u"> ", u">> ", u"> # ",
                                u"#\t", u"-", u"\u00A0#"});
    }

    // White space of all kinds, and some that only looks like it.
    QString space() {
        return chance(2) ? QStringLiteral(" ")
                         : one({u"", u"  ", u"\t", u"　", u"\u00A0", u"\u0085", u"\u2028", u"\n",
                                u"\r\n", u"\x1C", u"\u180E", u"\u200B", u"\u000B"});
    }

    QString digits(int number, int width) {
        QString text = QString::number(number).rightJustified(width, u'0');
        if (!chance(40)) return text;
        // The last digit in another script.
        const int last = text.back().digitValue();
        text.chop(1);
        switch (below(3)) {
            case 0:
                return text + QChar(0xFF10 + last);
            case 1:
                return text + QChar(0x0660 + last);
            default: {
                const char32_t mathematical = 0x1D7CE + static_cast<char32_t>(last);
                return text + QString::fromUcs4(&mathematical, 1);
            }
        }
    }

    QString year() {
        if (chance(12)) return one({u"????", u"???", u"????? "});
        return digits(chance(8) ? below(10000) : 1898 + below(205), 4);
    }

    QString monthNumber() { return digits(chance(10) ? below(40) : 1 + below(12), 1 + below(2)); }
    QString dayNumber() { return digits(chance(10) ? below(120) : 1 + below(31), 1 + below(2)); }

    QString cased(const QString& word) {
        QString text = chance(2) ? word : chance(2) ? word.toUpper() : word;
        if (chance(30)) text.replace(u's', QChar(0x017F));
        if (chance(30)) text.replace(QLatin1String("st"), QString(QChar(0xFB06)));
        return text;
    }

    QString month() {
        return cased(
                   one({u"january", u"February", u"march",     u"April",   u"May",      u"june",
                        u"July",    u"august",   u"September", u"october", u"november", u"december",
                        u"jan",     u"Feb",      u"mar",       u"apr",     u"jun",      u"jul",
                        u"Aug",     u"sept",     u"sep",       u"oct",     u"nov",      u"dec",
                        u"septem",  u"mai"})) +
               one({u"", u"", u"."});
    }

    QString weekday() {
        return cased(one({u"mon", u"tue", u"tues", u"wed", u"thu", u"thur", u"thurs", u"fri",
                          u"sat", u"sun", u"Monday", u"tuesday", u"wednesday", u"Thursday",
                          u"friday", u"saturday", u"sunday", u"sunsday", u"money"})) +
               one({u"", u"", u"."});
    }

    QString leadingWeekday() {
        return chance(2) ? weekday() + one({u",", u""}) + space() : QString();
    }

    QString ordinal() {
        return chance(2) ? cased(one({u"st", u"nd", u"rd", u"th", u"x"})) : QString();
    }

    QString date() {
        switch (below(6)) {
            case 0:
                return QStringLiteral("[") + year() + u'-' + monthNumber() + u'-' + dayNumber() +
                       (chance(2) ? one({u" ", u"T", u"  "}) + bracketedClock() : QString()) + u']';
            case 1:
            case 2:
                return year() + gap() + one({u"-", u"/", u".", u"年"}) + gap() + monthNumber() +
                       gap() + one({u"-", u"/", u".", u"月"}) + gap() + dayNumber() + gap() +
                       one({u"", u"日"});
            case 3:
                return leadingWeekday() + month() + space() + dayNumber() + ordinal() +
                       one({u"", u","}) + space() + year();
            case 4:
                return leadingWeekday() + dayNumber() + ordinal() + space() + month() +
                       one({u"", u","}) + space() + year();
            default:
                return monthNumber() + one({u"/", u"."}) + dayNumber() + one({u"/", u"."}) + year();
        }
    }

    QString gap() { return chance(4) ? space() : QString(); }

    QString clockNumbers(QChar colon) {
        QString text = digits(below(27), 1 + below(2)) + colon + digits(below(64), 2);
        if (chance(3)) text += colon + digits(below(64), 2);
        return text;
    }

    QString bracketedClock() {
        return clockNumbers(u':') + gap() + one({u"", u"am", u"PM", u"Pm", u"p.m.", u"a"});
    }

    QString clock() {
        return one({u"", u"", u"上午", u"下午", u"晚上", u"凌晨", u"早上", u"中午", u"午前",
                    u"午後"}) +
               gap() + clockNumbers(chance(3) ? u'：' : u':') + gap() +
               one({u"", u"am", u"PM", u"p.m.", u"A.M", u"amazing", u"pa"});
    }

    QString anyWeekday() {
        const QString name = one({u"星期四", u"周日", u"礼拜天", u"星期八", u"木", u"木曜",
                                  u"木曜日", u"月曜日", u"日曜目"});
        return one({u"", u"", u"(", u"（"}) + (chance(2) ? name : weekday()) +
               one({u"", u"", u")", u"）"});
    }

    QString behind() {
        QString text;
        for (int i = below(3); i > 0; --i)
            text += one({u" ", u"，", u", ", u"、", u""}) + anyWeekday();
        if (chance(2)) text += one({u" ", u",", u"，", u"", u"、"}) + clock();
        text += one({u"", u" ", u" · ", u" - ", u"：", u"  |*"});
        text += one({u"", u"去爬山", u"rain 20℃", u"1", u"🙂", u"sunny day", u"—–"});
        return text + one({u"", u"", u" ", u"*", u"\u2028", u"\r"});
    }

    void mutate(QString& text) {
        if (text.isEmpty()) return;
        const int at = below(static_cast<int>(text.size()));
        const QString other =
            one({u"0",  u"9",      u" ",  u"\t", u":",  u"：", u"-",      u"/",     u".", u",",
                 u"]",  u"年",     u"月", u"日", u"曜", u"m",  u"s",      u"ſ",     u"ﬅ", u"٣",
                 u"０", u"\u0301", u"?",  u"(",  u"）", u"周", u"\xD835", u"\xDFCE"});
        switch (below(3)) {
            case 0:
                text.remove(at, 1);
                return;
            case 1:
                text.insert(at, other);
                return;
            default:
                text.replace(at, 1, other);
        }
    }

    std::mt19937 m_random;
};

}  // namespace diary::test
