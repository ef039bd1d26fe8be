// Editing and highlighting of Markdown in their JSON shapes.
#include <QtCore/QJsonArray>

#include "DiaryKit/Markdown/MarkdownEditing.h"
#include "DiaryKit/Markdown/MarkdownHighlighting.h"
#include "DiaryKit/Markdown/MarkdownLine.h"
#include "tests/replay/Replay.h"
#include "tests/support/MarkdownSteps.h"

namespace diary::replay {

namespace {

QString text(const QJsonObject& in, const char* key = "text") {
    return in[QLatin1String(key)].toString();
}

qsizetype number(const QJsonObject& in, const char* key) {
    return in[QLatin1String(key)].toInt();
}

TextRange selection(const QJsonObject& in) {
    const QJsonArray range = in[QLatin1String("selection")].toArray();
    return {range[0].toInt(), range[1].toInt()};
}

QJsonArray json(const TextRange& range) {
    return {range.location, range.length};
}

QJsonObject json(const MarkdownChange::Step& step) {
    return {{QStringLiteral("range"), json(step.range)},
            {QStringLiteral("replacement"), step.replacement},
            {QStringLiteral("selection"), json(step.selection)},
            {QStringLiteral("changesText"), step.changesText()}};
}

QJsonValue json(const std::optional<MarkdownChange>& change, const QString& text) {
    if (!change) return QJsonObject{{QStringLiteral("change"), QJsonValue::Null}};
    QJsonArray steps;
    for (const MarkdownChange::Step& step : change->steps) steps.append(json(step));
    const TextWithSelection result = applied(*change, text);
    return QJsonObject{{QStringLiteral("change"), steps},
                       {QStringLiteral("text"), result.text},
                       {QStringLiteral("selection"), json(result.selection)}};
}

// A command that takes nothing but the text and the selection.
Function command(std::optional<MarkdownChange> (*made)(QStringView, TextRange)) {
    return [made](const QJsonObject& in) {
        const QString whole = text(in);
        return json(made(whole, selection(in)), whole);
    };
}

// A command with a text of its own, named `key`.
template <typename Made>
Function commandWith(const char* key, Made made) {
    return [key, made](const QJsonObject& in) {
        const QString whole = text(in);
        return json(std::optional(made(text(in, key), whole, selection(in))), whole);
    };
}

QString kindName(MarkdownLinePrefix::Kind kind) {
    static const char* const names[] = {"heading", "task",  "ordered", "plain",
                                        "bullet",  "quote", "rule"};
    return QLatin1String(names[static_cast<int>(kind)]);
}

QString kindName(MarkdownContext::Kind kind) {
    static const char* const names[] = {"heading", "task",  "plain",    "bullet",
                                        "ordered", "quote", "selection"};
    return QLatin1String(names[static_cast<int>(kind)]);
}

QJsonValue linePrefix(const QJsonObject& in) {
    using Kind = MarkdownLinePrefix::Kind;
    const QString line = text(in, "line");
    const MarkdownLinePrefix prefix = MarkdownLinePrefix::parse(line);
    QJsonValue value = QJsonValue::Null;
    if (prefix.kind == Kind::task) value = prefix.isChecked();
    if (prefix.kind == Kind::heading || prefix.kind == Kind::ordered) value = prefix.value;
    return QJsonObject{
        {QStringLiteral("kind"), kindName(prefix.kind)}, {QStringLiteral("value"), value},
        {QStringLiteral("indent"), prefix.indent},       {QStringLiteral("length"), prefix.length},
        {QStringLiteral("isList"), prefix.isList()},     {QStringLiteral("level"), prefix.level()}};
}

QJsonValue contextOf(const QJsonObject& in) {
    using Kind = MarkdownContext::Kind;
    const MarkdownContext context = MarkdownEditing::context(text(in), selection(in));
    QJsonValue value = QJsonValue::Null;
    if (context.kind == Kind::task) value = context.value != 0;
    if (context.kind == Kind::heading) value = context.value;
    return QJsonObject{{QStringLiteral("kind"), kindName(context.kind)},
                       {QStringLiteral("value"), value}};
}

MarkdownBlockStyle styleOf(const QJsonObject& in) {
    using Kind = MarkdownBlockStyle::Kind;
    static const QHash<QString, Kind> kinds = {
        {QStringLiteral("heading"), Kind::heading}, {QStringLiteral("plain"), Kind::plain},
        {QStringLiteral("bullet"), Kind::bullet},   {QStringLiteral("task"), Kind::task},
        {QStringLiteral("ordered"), Kind::ordered}, {QStringLiteral("quote"), Kind::quote}};
    return {kinds.value(text(in, "style")), in[QLatin1String("level")].toInt()};
}

QJsonValue markerOf(const QJsonObject& in) {
    const auto marker = MarkdownEditing::markdownMarker(text(in, "typed"), text(in, "space"));
    return QJsonObject{
        {QStringLiteral("marker"), marker ? QJsonValue(*marker) : QJsonValue(QJsonValue::Null)}};
}

QJsonValue closingMarker(const QJsonObject& in) {
    const QString marker = text(in, "marker");
    const bool isInside =
        !marker.isEmpty() &&
        MarkdownEditing::isInClosingMarker(number(in, "column"), text(in, "line"), marker.front());
    return QJsonObject{{QStringLiteral("inside"), isInside}};
}

QJsonObject json(const MarkdownAttributes& attributes) {
    static const char* const fonts[] = {"", "mono", "h1", "h2", "h3", "h4", "h5", "h6"};
    static const char* const colors[] = {"", "accent", "faint", "daySubText", "inkSource"};
    QJsonObject out;
    if (attributes.font != MarkdownFont::body) {
        out[QLatin1String("font")] = QLatin1String(fonts[static_cast<int>(attributes.font)]);
    }
    if (attributes.color != MarkdownColor::base) {
        out[QLatin1String("color")] = QLatin1String(colors[static_cast<int>(attributes.color)]);
    }
    if (attributes.isBold) out[QLatin1String("bold")] = true;
    if (attributes.isOblique) {
        out[QLatin1String("obliqueness")] = MarkdownAttributes::kObliqueness;
    }
    if (attributes.isStruck) out[QLatin1String("strikethrough")] = true;
    if (attributes.hasCodeBackground) {
        out[QLatin1String("background")] = QStringLiteral("hoverBg");
    }
    if (attributes.isHidden) out[QLatin1String("hidden")] = true;
    if (attributes.indent != MarkdownBlockMetrics::kTextEdge) {
        out[QLatin1String("indent")] = attributes.indent;
    }
    return out;
}

QJsonObject json(const MarkdownDecoration& decoration) {
    using Kind = MarkdownLinePrefix::Kind;
    QJsonObject out{{QStringLiteral("at"), decoration.at},
                    {QStringLiteral("kind"), kindName(decoration.kind)},
                    {QStringLiteral("level"), decoration.level}};
    if (decoration.kind == Kind::task) out[QLatin1String("value")] = decoration.value != 0;
    if (decoration.kind == Kind::ordered || decoration.kind == Kind::heading) {
        out[QLatin1String("value")] = decoration.value;
    }
    if (decoration.kind == Kind::heading) {
        out[QLatin1String("year")] =
            decoration.year ? QJsonValue(*decoration.year) : QJsonValue(QJsonValue::Null);
    }
    return out;
}

QJsonValue highlighted(const QJsonObject& in) {
    const MarkdownStyling styling = MarkdownHighlighting::highlight(
        text(in), MarkdownBlockMetrics{in[QLatin1String("fontSize")].toDouble()});
    QJsonArray runs;
    for (const MarkdownRun& run : styling.runs) {
        runs.append(QJsonObject{{QStringLiteral("range"), json(run.range)},
                                {QStringLiteral("attributes"), json(run.attributes)}});
    }
    QJsonArray decorations;
    for (const MarkdownDecoration& one : styling.decorations) decorations.append(json(one));
    return QJsonObject{{QStringLiteral("runs"), runs},
                       {QStringLiteral("decorations"), decorations}};
}

void addReading(Table& table) {
    table[QStringLiteral("linePrefix")] = linePrefix;
    table[QStringLiteral("markdownLineRange")] = [](const QJsonObject& in) -> QJsonValue {
        const TextRange range = markdownLineRange(text(in), number(in, "index"));
        return QJsonObject{{QStringLiteral("range"), json(range)}};
    };
    table[QStringLiteral("isInsideFence")] = [](const QJsonObject& in) -> QJsonValue {
        return QJsonObject{{QStringLiteral("inside"),
                            MarkdownEditing::isInsideFence(text(in), number(in, "position"))}};
    };
    table[QStringLiteral("markdownMarker")] = markerOf;
    table[QStringLiteral("isInClosingMarker")] = closingMarker;
    table[QStringLiteral("context")] = contextOf;
    table[QStringLiteral("plainText")] = [](const QJsonObject& in) -> QJsonValue {
        return QJsonObject{
            {QStringLiteral("text"), MarkdownEditing::plainText(text(in, "markdown"))}};
    };
    table[QStringLiteral("highlight")] = highlighted;
}

void addCommands(Table& table) {
    table[QStringLiteral("newline")] = command(MarkdownEditing::newline);
    table[QStringLiteral("backspace")] = command(MarkdownEditing::backspace);
    table[QStringLiteral("indent")] = command(MarkdownEditing::indent);
    table[QStringLiteral("outdent")] = command(MarkdownEditing::outdent);
    table[QStringLiteral("space")] = commandWith("typed", MarkdownEditing::space);
    table[QStringLiteral("overtype")] = commandWith("typed", MarkdownEditing::overtype);
    table[QStringLiteral("wrap")] = commandWith("marker", MarkdownEditing::wrap);
    table[QStringLiteral("pasteLink")] = commandWith("pasted", MarkdownEditing::pasteLink);
    table[QStringLiteral("link")] = [](const QJsonObject& in) {
        const QString whole = text(in);
        return json(MarkdownEditing::link(whole, selection(in)), whole);
    };
    table[QStringLiteral("setBlock")] = [](const QJsonObject& in) {
        const QString whole = text(in);
        return json(MarkdownEditing::setBlock(styleOf(in), whole, selection(in)), whole);
    };
    table[QStringLiteral("toggleTask")] = [](const QJsonObject& in) {
        const QString whole = text(in);
        const qsizetype position = number(in, "position");
        return json(MarkdownEditing::toggleTask(position, whole, selection(in)), whole);
    };
}

}  // namespace

void addMarkdownFunctions(Table& table) {
    addReading(table);
    addCommands(table);
}

}  // namespace diary::replay
