#include "tests/replay/Replay.h"

#include <QtCore/QJsonDocument>

namespace diary::replay {

namespace {

// Qt's JSON reader drops a byte order mark at the start of a text. Escaped, it stays.
QByteArray withEscapedMarks(QByteArray json) {
    return json.replace("\xEF\xBB\xBF", "\\ufeff");
}

}  // namespace

const Table& functions() {
    static const Table table = [] {
        Table all;
        addVaultFunctions(all);
        addAppearanceFunctions(all);
        addMarkdownFunctions(all);
        addSearchFunctions(all);
        addImportFunctions(all);
        addImportSourceFunctions(all);
        addHtmlFunctions(all);
        addFolderSourceFunctions(all);
        addAgentWorkspaceFunctions(all);
        addPlanFunctions(all);
        addLogFunctions(all);
        addDatedTextFunctions(all);
        addDaylioFunctions(all);
        addFolderSourceFunctions(all);
        return all;
    }();
    return table;
}

QByteArray answer(const QByteArray& line) {
    const QJsonObject request = QJsonDocument::fromJson(withEscapedMarks(line)).object();
    const auto function = functions().constFind(request[QLatin1String("fn")].toString());
    QJsonObject result;
    if (function == functions().constEnd()) {
        result[QLatin1String("unsupported")] = true;
    } else {
        result[QLatin1String("out")] = (*function)(request[QLatin1String("in")].toObject());
    }
    return withEscapedMarks(QJsonDocument(result).toJson(QJsonDocument::Compact));
}

}  // namespace diary::replay
