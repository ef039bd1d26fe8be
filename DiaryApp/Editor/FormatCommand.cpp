#include "DiaryApp/Editor/FormatCommand.h"

#include <QtCore/QCoreApplication>
#include <algorithm>
#include <array>

namespace velmar {

namespace {

namespace editing = diary::MarkdownEditing;
using diary::MarkdownBlockStyle;
using diary::MarkdownChange;
using diary::MarkdownContext;
using diary::TextRange;

constexpr bool kSeparator = true;

constexpr std::array kTable = {
    FormatRow{FormatCommand::Bold, "bold", QT_TRID_NOOP("Bold")},
    FormatRow{FormatCommand::Italic, "italic", QT_TRID_NOOP("Italic")},
    FormatRow{FormatCommand::Strikethrough, "strike", QT_TRID_NOOP("Strikethrough")},
    FormatRow{FormatCommand::Code, "code", QT_TRID_NOOP("Inline Code")},
    FormatRow{FormatCommand::Link, "link", QT_TRID_NOOP("Link"), kSeparator},
    FormatRow{FormatCommand::Heading1, "heading1", QT_TRID_NOOP("Heading 1")},
    FormatRow{FormatCommand::Heading2, "heading2", QT_TRID_NOOP("Heading 2")},
    FormatRow{FormatCommand::Heading3, "heading3", QT_TRID_NOOP("Heading 3")},
    FormatRow{FormatCommand::Body, "body", QT_TRID_NOOP("Body Text"), kSeparator},
    FormatRow{FormatCommand::Bullet, "bullet", QT_TRID_NOOP("Bulleted List")},
    FormatRow{FormatCommand::Ordered, "ordered", QT_TRID_NOOP("Numbered List")},
    FormatRow{FormatCommand::Task, "task", QT_TRID_NOOP("To-Do")},
    FormatRow{FormatCommand::Quote, "quote", QT_TRID_NOOP("Quote")},
    FormatRow{FormatCommand::ToggleTask, "check", QT_TRID_NOOP("Check To-Do"), kSeparator},
    FormatRow{FormatCommand::Indent, "indent", QT_TRID_NOOP("Indent")},
    FormatRow{FormatCommand::Outdent, "outdent", QT_TRID_NOOP("Outdent")},
};

constexpr std::array kMarkers = {u"**", u"*", u"~~", u"`"};

std::optional<MarkdownBlockStyle> blockStyle(FormatCommand command) {
    using Kind = MarkdownBlockStyle::Kind;
    switch (command) {
        case FormatCommand::Heading1:
            return MarkdownBlockStyle{Kind::heading, 1};
        case FormatCommand::Heading2:
            return MarkdownBlockStyle{Kind::heading, 2};
        case FormatCommand::Heading3:
            return MarkdownBlockStyle{Kind::heading, 3};
        case FormatCommand::Body:
            return MarkdownBlockStyle{Kind::plain};
        case FormatCommand::Bullet:
            return MarkdownBlockStyle{Kind::bullet};
        case FormatCommand::Ordered:
            return MarkdownBlockStyle{Kind::ordered};
        case FormatCommand::Task:
            return MarkdownBlockStyle{Kind::task};
        case FormatCommand::Quote:
            return MarkdownBlockStyle{Kind::quote};
        default:
            return std::nullopt;
    }
}

MarkdownContext::Kind contextOf(MarkdownBlockStyle::Kind kind) {
    using Style = MarkdownBlockStyle::Kind;
    using Context = MarkdownContext::Kind;
    switch (kind) {
        case Style::heading:
            return Context::heading;
        case Style::plain:
            return Context::plain;
        case Style::bullet:
            return Context::bullet;
        case Style::task:
            return Context::task;
        case Style::ordered:
            return Context::ordered;
        case Style::quote:
            return Context::quote;
    }
    return Context::plain;
}

}  // namespace

std::span<const FormatRow> formatTable() {
    return kTable;
}

std::optional<FormatCommand> formatCommand(QStringView name) {
    const auto found = std::ranges::find_if(
        kTable, [name](const FormatRow& row) { return name == QLatin1String(row.name); });
    if (found == kTable.end()) return std::nullopt;
    return found->command;
}

std::optional<MarkdownChange> formatChange(FormatCommand command, QStringView text,
                                           TextRange selection) {
    if (const auto style = blockStyle(command)) return editing::setBlock(*style, text, selection);
    switch (command) {
        case FormatCommand::Link:
            return editing::link(text, selection);
        case FormatCommand::ToggleTask:
            return editing::toggleTask(selection.location, text, selection);
        case FormatCommand::Indent:
            return editing::indent(text, selection);
        case FormatCommand::Outdent:
            return editing::outdent(text, selection);
        default:
            return editing::wrap(kMarkers[static_cast<std::size_t>(command)], text, selection);
    }
}

bool isCheckable(FormatCommand command) {
    return blockStyle(command).has_value();
}

bool isChecked(FormatCommand command, MarkdownContext context) {
    const auto style = blockStyle(command);
    if (!style || contextOf(style->kind) != context.kind) return false;
    return style->kind != MarkdownBlockStyle::Kind::heading || style->level == context.value;
}

}  // namespace velmar
