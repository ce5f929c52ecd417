#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QMimeData>
#include <cstdio>

// Owns the clipboard through Qt with the given types until another client takes it. Arguments are
// "type=path" pairs; the type "text" sets the plain text. Prints one line once the clipboard is owned.
int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    auto* mime = new QMimeData;
    for (const QString& argument : app.arguments().mid(1)) {
        const qsizetype split = argument.indexOf(u'=');
        QFile file(argument.mid(split + 1));
        if (split < 0 || !file.open(QIODevice::ReadOnly)) {
            return 2;
        }
        const QString type = argument.left(split);
        if (type == QStringLiteral("text")) {
            mime->setText(QString::fromUtf8(file.readAll()));
        } else {
            mime->setData(type, file.readAll());
        }
    }
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->setMimeData(mime, QClipboard::Clipboard);
    QObject::connect(clipboard, &QClipboard::changed, &app, [clipboard](QClipboard::Mode mode) {
        if (mode == QClipboard::Clipboard && !clipboard->ownsClipboard()) {
            QCoreApplication::quit();
        }
    });
    std::puts("owned");
    std::fflush(stdout);
    return app.exec();
}
