#include "DiaryKit/Import/MiniHTMLTags.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace diary::minihtml {

namespace {

using Role = HTMLRole;

struct TagGroup {
    Role role;
    TagEnd end;
    // Apart by blanks.
    std::u16string_view names;
};

constexpr TagGroup kGroups[] = {
    {Role::Division, TagEnd::Closed,
     u"address article aside body center dd details div dl dt en-note "
     u"figcaption figure footer form header html main nav p section "
     u"summary"},
    {Role::Heading, TagEnd::Closed, u"h1 h2 h3 h4 h5 h6"},
    {Role::UnorderedList, TagEnd::Closed, u"ul"},
    {Role::OrderedList, TagEnd::Closed, u"ol"},
    {Role::ListItem, TagEnd::Closed, u"li"},
    {Role::Quote, TagEnd::Closed, u"blockquote"},
    {Role::Preformatted, TagEnd::Closed, u"pre"},
    {Role::Rule, TagEnd::Void, u"hr"},
    {Role::Table, TagEnd::Closed, u"table tbody tfoot thead"},
    {Role::Row, TagEnd::Closed, u"tr"},
    {Role::Cell, TagEnd::Closed, u"td th"},
    {Role::Bold, TagEnd::Closed, u"b mark strong"},
    {Role::Italic, TagEnd::Closed, u"cite em i"},
    {Role::Strikethrough, TagEnd::Closed, u"del s strike"},
    {Role::Code, TagEnd::Closed, u"code kbd tt"},
    {Role::Link, TagEnd::Closed, u"a"},
    {Role::Input, TagEnd::Void, u"input"},
    {Role::Todo, TagEnd::Closed, u"en-todo"},
    {Role::LineBreak, TagEnd::Void, u"br"},
    {Role::Media, TagEnd::Closed, u"audio canvas en-media iframe object picture svg video"},
    {Role::Media, TagEnd::Void, u"img"},
    {Role::Plain, TagEnd::Void, u"area base col embed link meta param source track wbr"},
    {Role::Plain, TagEnd::Raw, u"script style title"},
};

constexpr std::size_t tagCount() {
    std::size_t count = 0;
    for (const TagGroup& group : kGroups) count += 1 + std::ranges::count(group.names, u' ');
    return count;
}

constexpr std::u16string_view nameOf(const KnownTag& tag) {
    return {tag.name.utf16(), static_cast<std::size_t>(tag.name.size())};
}

// All tags by their names, so that one is found by halving.
constexpr auto kTags = [] {
    std::array<KnownTag, tagCount()> tags;
    auto* next = tags.begin();
    for (const TagGroup& group : kGroups) {
        for (std::u16string_view rest = group.names; !rest.empty();) {
            const std::size_t length = std::min(rest.find(u' '), rest.size());
            *next++ = {{rest.data(), static_cast<qsizetype>(length)}, group.role, group.end};
            rest.remove_prefix(std::min(length + 1, rest.size()));
        }
    }
    std::ranges::sort(tags, {}, nameOf);
    return tags;
}();

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
