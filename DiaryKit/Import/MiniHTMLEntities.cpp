#include <algorithm>
#include <iterator>

#include "DiaryKit/Import/MiniHTML.h"

namespace diary::MiniHTML {

namespace {

// How far behind its "&" an entity's ";" may stand, in code points.
constexpr int kWindow = 10;

struct Entity {
    QStringView name;
    char16_t character;
};

constexpr Entity kNamed[] = {
    {u"amp", u'&'},        {u"lt", u'<'},         {u"gt", u'>'},          {u"quot", u'"'},
    {u"apos", u'\''},      {u"nbsp", u'\u00A0'},  {u"hellip", u'\u2026'}, {u"mdash", u'\u2014'},
    {u"ndash", u'\u2013'}, {u"ldquo", u'\u201C'}, {u"rdquo", u'\u201D'},  {u"lsquo", u'\u2018'},
    {u"rsquo", u'\u2019'}, {u"copy", u'\u00A9'},  {u"middot", u'\u00B7'}, {u"times", u'\u00D7'},
    {u"yen", u'\u00A5'},   {u"emsp", u'\u2003'},  {u"ensp", u'\u2002'},   {u"thinsp", u'\u2009'},
};

// The place of the ";" within the window that begins at `from`, or -1.
qsizetype endOfEntity(QStringView text, qsizetype from) {
    qsizetype at = from;
    for (int passed = 0; passed < kWindow && at < text.size(); ++passed, ++at) {
        if (text[at] == u';') return at;
        const bool isPair =
            text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        if (isPair) ++at;
    }
    return -1;
}

int digitOf(QChar unit) {
    const char16_t code = unit.unicode();
    if (code >= u'0' && code <= u'9') return code - u'0';
    if (code >= u'a' && code <= u'f') return code - u'a' + 10;
    if (code >= u'A' && code <= u'F') return code - u'A' + 10;
    return 16;
}

// The Unicode scalar that the digits stand for. The window keeps them few, so nothing overflows.
std::optional<char32_t> scalar(QStringView digits, int base) {
    if (digits.isEmpty()) return std::nullopt;
    uint64_t value = 0;
    for (const QChar unit : digits) {
        const int digit = digitOf(unit);
        if (digit >= base) return std::nullopt;
        value = value * static_cast<uint64_t>(base) + static_cast<uint64_t>(digit);
    }
    if (value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF)) return std::nullopt;
    return static_cast<char32_t>(value);
}

// What stands between "&" and ";" as a character.
std::optional<char32_t> character(QStringView name) {
    if (name.startsWith(u"#x") || name.startsWith(u"#X")) return scalar(name.sliced(2), 16);
    if (name.startsWith(u'#')) return scalar(name.sliced(1), 10);
    const auto* found = std::find_if(std::begin(kNamed), std::end(kNamed),
                                     [&](const Entity& entity) { return entity.name == name; });
    return found == std::end(kNamed) ? std::nullopt : std::optional<char32_t>(found->character);
}

}  // namespace

QString decodeEntities(QStringView text) {
    QString decoded;
    qsizetype copied = 0;
    for (qsizetype at = text.indexOf(u'&'); at >= 0;) {
        const qsizetype end = endOfEntity(text, at + 1);
        const auto scalar = end < 0 ? std::nullopt : character(text.sliced(at + 1, end - at - 1));
        if (scalar) {
            decoded += text.sliced(copied, at - copied);
            decoded += QStringView(QChar::fromUcs4(*scalar));
            copied = end + 1;
        }
        at = text.indexOf(u'&', scalar ? copied : at + 1);
    }
    if (copied == 0) return text.toString();
    return decoded += text.sliced(copied);
}

}  // namespace diary::MiniHTML
