// The HTML reader and converter in their JSON shapes.
#include <QtCore/QJsonArray>

#include "DiaryKit/Import/HTMLToMarkdown.h"
#include "DiaryKit/Import/MiniHTML.h"
#include "tests/replay/Replay.h"

namespace diary::replay {

namespace {

QJsonObject withText(const QString& text) {
    return {{QStringLiteral("text"), text}};
}

QString text(const QJsonObject& in) {
    return in[QLatin1String("text")].toString();
}

HTMLDocument parsed(const QJsonObject& in) {
    return MiniHTML::parse(in[QLatin1String("html")].toString());
}

QJsonValue tree(const HTMLNode& node) {
    if (node.isText()) return node.text().toString();
    QJsonObject attributes;
    const QMap<QString, QString> all = node.attributes();
    for (auto one = all.begin(); one != all.end(); ++one) attributes[one.key()] = one.value();
    QJsonArray children;
    for (const HTMLNode* child = node.firstChild(); child; child = child->nextSibling()) {
        children.append(tree(*child));
    }
    return QJsonObject{{QStringLiteral("tag"), node.tag().toString()},
                       {QStringLiteral("attributes"), attributes},
                       {QStringLiteral("children"), children}};
}

QJsonValue textContent(const QJsonObject& in) {
    const QString content = parsed(in).root().textContent();
    return QJsonObject{{QStringLiteral("textContent"), content},
                       {QStringLiteral("preservingWhitespace"), content}};
}

}  // namespace

void addHtmlFunctions(Table& table) {
    table[QStringLiteral("decodeEntities")] = [](const QJsonObject& in) -> QJsonValue {
        return withText(MiniHTML::decodeEntities(text(in)));
    };
    table[QStringLiteral("tidy")] = [](const QJsonObject& in) -> QJsonValue {
        return withText(HTMLToMarkdown::tidy(text(in)));
    };
    table[QStringLiteral("HTMLToMarkdown.tidy")] = [](const QJsonObject& in) -> QJsonValue {
        return HTMLToMarkdown::tidy(text(in));
    };
    table[QStringLiteral("parseHTML")] = [](const QJsonObject& in) -> QJsonValue {
        return QJsonObject{{QStringLiteral("tree"), tree(parsed(in).root())}};
    };
    table[QStringLiteral("textContent")] = textContent;
    table[QStringLiteral("htmlBlocks")] = [](const QJsonObject& in) -> QJsonValue {
        const QStringList blocks = HTMLToMarkdown::blocks(parsed(in).root());
        return QJsonObject{{QStringLiteral("blocks"), QJsonArray::fromStringList(blocks)}};
    };
    table[QStringLiteral("htmlInlineText")] = [](const QJsonObject& in) -> QJsonValue {
        return withText(HTMLToMarkdown::inlineText(parsed(in).root()));
    };
    table[QStringLiteral("htmlToMarkdown")] = [](const QJsonObject& in) -> QJsonValue {
        return withText(HTMLToMarkdown::markdown(parsed(in).root()));
    };
}

}  // namespace diary::replay
