#include "DiaryKit/Documents/RtfWords.h"

#include <initializer_list>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "DiaryKit/Documents/CodePages.h"

namespace diary::documents {

namespace {

using Words = std::unordered_map<std::string_view, RtfWord>;

void addCharacters(Words& words) {
    constexpr std::pair<std::string_view, char16_t> kCharacters[] = {
        {"tab", u'\t'},           {"emdash", u'\u2014'},  {"endash", u'\u2013'},
        {"lquote", u'\u2018'},    {"rquote", u'\u2019'},  {"ldblquote", u'\u201C'},
        {"rdblquote", u'\u201D'}, {"bullet", u'\u2022'},  {"emspace", u'\u2003'},
        {"enspace", u'\u2002'},   {"qmspace", u'\u2005'}, {"zwj", u'\u200D'},
        {"zwnj", u'\u200C'},      {"ltrmark", u'\u200E'}, {"rtlmark", u'\u200F'},
    };
    for (const auto& [name, character] : kCharacters) {
        words[name] = {RtfMeaning::Character, character};
    }
}

void addAll(Words& words, std::initializer_list<std::string_view> names, RtfMeaning meaning) {
    for (std::string_view name : names) words[name] = {meaning};
}

Words made() {
    Words words;
    addCharacters(words);
    addAll(words, {"par", "sect"}, RtfMeaning::Paragraph);
    addAll(words, {"line", "lbr", "page", "column"}, RtfMeaning::LineBreak);
    addAll(words, {"trowd"}, RtfMeaning::StartRow);
    addAll(words, {"cell", "nestcell"}, RtfMeaning::Cell);
    addAll(words, {"row"}, RtfMeaning::Row);
    addAll(words, {"nestrow"}, RtfMeaning::RowInCell);
    addAll(words, {"u"}, RtfMeaning::Unicode);
    addAll(words, {"uc"}, RtfMeaning::UnicodeSkip);
    addAll(words, {"f"}, RtfMeaning::Font);
    addAll(words, {"plain"}, RtfMeaning::Plain);
    // What a tracked change took away is hidden too.
    addAll(words, {"v", "deleted"}, RtfMeaning::Hidden);
    addAll(words, {"deff"}, RtfMeaning::DefaultFont);
    addAll(words, {"ansicpg"}, RtfMeaning::AnsiCodePage);
    addAll(words, {"mac"}, RtfMeaning::MacCharacters);
    addAll(words, {"pc", "pca"}, RtfMeaning::PcCharacters);
    addAll(words, {"fcharset"}, RtfMeaning::FontCharset);
    addAll(words, {"cpg"}, RtfMeaning::FontCodePage);
    addAll(words, {"fonttbl"}, RtfMeaning::FontTable);
    addAll(words, {"footnote", "shptxt", "dptxbxtext"}, RtfMeaning::Aside);
    addAll(words, {"NeXTGraphic"}, RtfMeaning::Attachment);
    addAll(words, {"upr"}, RtfMeaning::TwoForms);
    addAll(words, {"ud"}, RtfMeaning::UnicodeForm);
    addAll(words, {"shpinst", "do", "nesttableprops", "moMath", "moMathPara"}, RtfMeaning::Known);
    addAll(
        words,
        {"colortbl",  "stylesheet", "info",       "pict",         "objdata",   "header",
         "headerl",   "headerr",    "headerf",    "footer",       "footerl",   "footerr",
         "footerf",   "ftnsep",     "ftnsepc",    "ftncn",        "aftnsep",   "aftnsepc",
         "aftncn",    "fldinst",    "listtext",   "pntext",       "listtable", "listoverridetable",
         "filetbl",   "revtbl",     "xe",         "tc",           "tcn",       "rxe",
         "txe",       "bkmkstart",  "bkmkend",    "annotation",   "atnid",     "atnauthor",
         "sp",        "shprslt",    "nonshppict", "nonesttables", "mmathPr",   "generator",
         "mmathPict", "falt",       "panose",     "fontemb",      "datafield", "xmlnstbl"},
        RtfMeaning::LeftOut);
    return words;
}

}  // namespace

RtfWord rtfWord(QByteArrayView name) {
    static const Words words = made();
    const auto found = words.find({name.data(), static_cast<std::size_t>(name.size())});
    return found == words.end() ? RtfWord() : found->second;
}

int codePageOfCharset(int charset) {
    static const std::unordered_map<int, int> codePages{
        {0, CodePages::kWestern},
        // Symbols, which aren't letters in any code page.
        {2, CodePages::kWestern},
        {77, CodePages::kMacRoman},
        {78, 10001},
        {79, 10003},
        {80, 10008},
        {81, 10002},
        {85, 10006},
        {86, 10081},
        {88, 10029},
        {89, 10007},
        {128, 932},
        {129, 949},
        {130, 1361},
        {134, 936},
        {136, 950},
        {161, 1253},
        {162, 1254},
        {163, 1258},
        {177, 1255},
        {178, 1256},
        {186, 1257},
        {204, 1251},
        {222, 874},
        {238, 1250},
        {254, 437},
        {255, 850},
    };
    const auto found = codePages.find(charset);
    return found == codePages.end() ? -1 : found->second;
}

}  // namespace diary::documents
