// The yardstick for the start: a Qt program with a plain text field and nothing else.
#include <QtWidgets/QApplication>
#include <QtWidgets/QPlainTextEdit>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QPlainTextEdit editor;
    editor.resize(1360, 840);
    editor.show();
    return QApplication::exec();
}
