#include <QApplication>
#include <QCommandLineParser>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSocketNotifier>
#include <cstdio>
#include <unistd.h>

namespace {

void reply(const QByteArray& line)
{
    std::fwrite(line.constData(), 1, size_t(line.size()), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

// Reports every key press that carries Control, as "key" and the modifiers and key names, so a test can
// see which shortcut reached the focused window.
class ShortcutReporter : public QObject {
public:
    // With ignoreCopy, Control+C does nothing, as in a terminal, where it interrupts instead of copying.
    explicit ShortcutReporter(bool ignoreCopy) : m_ignoreCopy(ignoreCopy) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (m_ignoreCopy &&
            (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride) &&
            static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
            if (event->type() == QEvent::KeyPress) {
                reply("key ctrl C");
            }
            return true;
        }
        if (event->type() == QEvent::KeyPress) {
            const auto* key = static_cast<QKeyEvent*>(event);
            const bool modifierOnly = key->key() == Qt::Key_Shift || key->key() == Qt::Key_Control ||
                                      key->key() == Qt::Key_Alt || key->key() == Qt::Key_Meta;
            if (key->modifiers().testFlag(Qt::ControlModifier) && !modifierOnly && !key->isAutoRepeat()) {
                QByteArray line = "key";
                if (key->modifiers().testFlag(Qt::ShiftModifier)) {
                    line += " shift";
                }
                line += " ctrl " + QKeySequence(key->key()).toString().toUtf8();
                reply(line);
            }
        }
        return QObject::eventFilter(watched, event);
    }

private:
    bool m_ignoreCopy;
};

} // namespace

// A window with one text field for the end-to-end tests. Prints "ready" once shown, then answers lines on
// stdin: "text" and "selection" print the field's text or selection as "text <base64>", "focus" whether it
// has the keyboard focus ("yes", "no"), "window" the X window of the field, "set <base64>" replaces the text,
// "select <start> <length>" selects, "quit" ends. With --ignore-copy, Control+C copies nothing; with
// --crowd the field sits last in a window of labels.
int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption windowClass(QStringLiteral("class"), QStringLiteral("WM_CLASS class"),
                                         QStringLiteral("class"), QStringLiteral("MivoraTestField"));
    const QCommandLineOption title(QStringLiteral("title"), QStringLiteral("Window title"),
                                   QStringLiteral("title"), QStringLiteral("Mivora test field"));
    const QCommandLineOption text(QStringLiteral("text"), QStringLiteral("Initial text"),
                                  QStringLiteral("text"));
    const QCommandLineOption otherWindow(
        QStringLiteral("other-window"), QStringLiteral("Title of a second window, mapped before the field's"),
        QStringLiteral("title"));
    const QCommandLineOption ignoreCopy(QStringLiteral("ignore-copy"),
                                        QStringLiteral("Control+C copies nothing"));
    const QCommandLineOption crowd(QStringLiteral("crowd"),
                                   QStringLiteral("Put the field last in one window with this many labels"),
                                   QStringLiteral("labels"));
    const QCommandLineOption minimumWidth(QStringLiteral("min-width"),
                                          QStringLiteral("The narrowest the field's window may get"),
                                          QStringLiteral("pixels"), QStringLiteral("400"));
    parser.addOptions({windowClass, title, text, otherWindow, ignoreCopy, crowd, minimumWidth});
    parser.process(app);
    // Qt takes the class part of WM_CLASS from the application name when the window is created.
    QCoreApplication::setApplicationName(parser.value(windowClass));

    // Mapped first, so the field's window is not the first of the process.
    QLineEdit other;
    if (parser.isSet(otherWindow)) {
        other.setWindowTitle(parser.value(otherWindow));
        other.setMinimumWidth(400);
        other.show();
    }
    // A window crowded with accessible elements ahead of the field, as a large application's window is.
    QWidget crowdWindow;
    QLineEdit field(parser.isSet(crowd) ? &crowdWindow : nullptr);
    if (parser.isSet(crowd)) {
        auto* grid = new QGridLayout(&crowdWindow);
        grid->setSpacing(0);
        const int labels = parser.value(crowd).toInt();
        constexpr int columns = 50;
        for (int index = 0; index < labels; ++index) {
            grid->addWidget(new QLabel(QString::number(index)), index / columns, index % columns);
        }
        grid->addWidget(&field, labels / columns + 1, 0, 1, columns);
        crowdWindow.setWindowTitle(parser.value(title));
        crowdWindow.show();
    }
    field.setAccessibleName(QStringLiteral("Test field"));
    field.setWindowTitle(parser.value(title));
    field.setText(parser.value(text));
    field.setMinimumWidth(parser.value(minimumWidth).toInt());
    ShortcutReporter reporter(parser.isSet(ignoreCopy));
    field.installEventFilter(&reporter);
    // Each change of the text is told unasked, so a test can follow a paste without asking a field that may
    // be busy reading the clipboard.
    QObject::connect(&field, &QLineEdit::textChanged,
                     [](const QString& text) { reply("changed " + text.toUtf8().toBase64()); });
    field.show();
    // The field is its window's focus, whichever window was active first.
    field.setFocus();
    field.activateWindow();

    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &app, [&] {
        char buffer[4096];
        const ssize_t count = ::read(STDIN_FILENO, buffer, sizeof buffer);
        if (count <= 0) {
            QCoreApplication::quit();
            return;
        }
        static QByteArray pending;
        pending.append(buffer, count);
        qsizetype end = 0;
        while ((end = pending.indexOf('\n')) >= 0) {
            const QByteArray line = pending.left(end).trimmed();
            pending.remove(0, end + 1);
            if (line == "text") {
                reply("text " + field.text().toUtf8().toBase64());
            } else if (line == "selection") {
                reply("text " + field.selectedText().toUtf8().toBase64());
            } else if (line == "window") {
                reply("text " + QByteArray::number(field.winId()).toBase64());
            } else if (line == "focus") {
                const bool focused = field.isActiveWindow() && field.hasFocus();
                reply("text " + QByteArray(focused ? "yes" : "no").toBase64());
            } else if (line.startsWith("select ")) {
                const QList<QByteArray> range = line.split(' ');
                field.setSelection(range.value(1).toInt(), range.value(2).toInt());
                reply("done");
            } else if (line.startsWith("set ")) {
                field.setText(QString::fromUtf8(QByteArray::fromBase64(line.mid(4))));
                reply("done");
            } else if (line == "quit") {
                QCoreApplication::quit();
            }
        }
    });
    QMetaObject::invokeMethod(
        &app, [] { reply("ready"); }, Qt::QueuedConnection);
    return app.exec();
}
