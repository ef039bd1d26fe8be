#include "DiaryKit/Import/MiniHTMLTags.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace diary::minihtml {

namespace {

using Role = HTMLRole;

// In the order of the names, so that one is found by halving.
constexpr KnownTag kTags[] = {
    {u"a", Role::Link},
    {u"address", Role::Division},
    {u"area", Role::Plain, TagEnd::Void},
    {u"article", Role::Division},
    {u"aside", Role::Division},
    {u"audio", Role::Media},
    {u"b", Role::Bold},
    {u"base", Role::Plain, TagEnd::Void},
    {u"blockquote", Role::Quote},
    {u"body", Role::Division},
    {u"br", Role::LineBreak, TagEnd::Void},
    {u"canvas", Role::Media},
    {u"center", Role::Division},
    {u"cite", Role::Italic},
    {u"code", Role::Code},
    {u"col", Role::Plain, TagEnd::Void},
    {u"dd", Role::Division},
    {u"del", Role::Strikethrough},
    {u"details", Role::Division},
    {u"div", Role::Division},
    {u"dl", Role::Division},
    {u"dt", Role::Division},
    {u"em", Role::Italic},
    {u"embed", Role::Plain, TagEnd::Void},
    {u"en-media", Role::Media},
    {u"en-note", Role::Division},
    {u"en-todo", Role::Todo},
    {u"figcaption", Role::Division},
    {u"figure", Role::Division},
    {u"footer", Role::Division},
    {u"form", Role::Division},
    {u"h1", Role::Heading},
    {u"h2", Role::Heading},
    {u"h3", Role::Heading},
    {u"h4", Role::Heading},
    {u"h5", Role::Heading},
    {u"h6", Role::Heading},
    {u"header", Role::Division},
    {u"hr", Role::Rule, TagEnd::Void},
    {u"html", Role::Division},
    {u"i", Role::Italic},
    {u"iframe", Role::Media},
    {u"img", Role::Media, TagEnd::Void},
    {u"input", Role::Input, TagEnd::Void},
    {u"kbd", Role::Code},
    {u"li", Role::ListItem},
    {u"link", Role::Plain, TagEnd::Void},
    {u"main", Role::Division},
    {u"mark", Role::Bold},
    {u"meta", Role::Plain, TagEnd::Void},
    {u"nav", Role::Division},
    {u"object", Role::Media},
    {u"ol", Role::OrderedList},
    {u"p", Role::Division},
    {u"param", Role::Plain, TagEnd::Void},
    {u"picture", Role::Media},
    {u"pre", Role::Preformatted},
    {u"s", Role::Strikethrough},
    {u"script", Role::Plain, TagEnd::Raw},
    {u"section", Role::Division},
    {u"source", Role::Plain, TagEnd::Void},
    {u"strike", Role::Strikethrough},
    {u"strong", Role::Bold},
    {u"style", Role::Plain, TagEnd::Raw},
    {u"summary", Role::Division},
    {u"svg", Role::Media},
    {u"table", Role::Table},
    {u"tbody", Role::Table},
    {u"td", Role::Cell},
    {u"tfoot", Role::Table},
    {u"th", Role::Cell},
    {u"thead", Role::Table},
    {u"title", Role::Plain, TagEnd::Raw},
    {u"tr", Role::Row},
    {u"track", Role::Plain, TagEnd::Void},
    {u"tt", Role::Code},
    {u"ul", Role::UnorderedList},
    {u"video", Role::Media},
    {u"wbr", Role::Plain, TagEnd::Void},
};

// "blockquote" and "figcaption".
constexpr qsizetype kLongestName = 10;

char16_t lowerAscii(QChar unit) {
    const char16_t code = unit.unicode();
    return code >= u'A' && code <= u'Z' ? static_cast<char16_t>(code + 32) : code;
}

}  // namespace

int knownTagCount() {
    return static_cast<int>(std::size(kTags));
}

int knownTagNumber(QStringView name) {
    if (name.size() > kLongestName) return -1;
    std::array<char16_t, kLongestName> lower{};
    std::transform(name.begin(), name.end(), lower.begin(), lowerAscii);
    const QStringView wanted(lower.data(), name.size());
    const auto* found =
        std::lower_bound(std::begin(kTags), std::end(kTags), wanted,
                         [](const KnownTag& tag, QStringView sought) { return tag.name < sought; });
    if (found == std::end(kTags) || found->name != wanted) return -1;
    return static_cast<int>(found - std::begin(kTags));
}

const KnownTag& knownTag(int number) {
    return kTags[number];
}

}  // namespace diary::minihtml
