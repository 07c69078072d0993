// SPDX-License-Identifier: MIT
// vemo-demo: the VemoGridLib invoice application. `--database FILE` opens another invoice
// file; `--screenshot FILE` renders the window without showing it (also on the offscreen
// platform), writes it to FILE as a PNG and exits.
#include "InvoiceDatabase.h"
#include "MainWindow.h"

#include <VemoGridLib/Messages.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

int writeScreenshot(MainWindow& window, const QString& file)
{
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.show();
    QApplication::processEvents();
    if (!window.grab().save(file, "PNG")) {
        QTextStream(stderr) << "vemo-demo: cannot write " << file << Qt::endl;
        return 1;
    }
    QTextStream(stdout) << "vemo-demo: wrote " << file << Qt::endl;
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("VemoGridLib Demo"));
    QApplication::setApplicationVersion(QStringLiteral(VEMOGRIDLIB_VERSION_STRING));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "The VemoGridLib demo: invoices kept in an SQLite file, listed in one VemoGrid and "
        "edited in another."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption database(
        QStringLiteral("database"),
        QStringLiteral("Open the invoice file <file>, created with sample invoices when new."),
        QStringLiteral("file"));
    const QCommandLineOption screenshot(
        QStringLiteral("screenshot"),
        QStringLiteral("Render the window to the PNG <file> without showing it, then exit."),
        QStringLiteral("file"));
    parser.addOption(database);
    parser.addOption(screenshot);
    parser.process(app);

    QString file = parser.isSet(database) ? parser.value(database) : QString();
    // A screenshot shows the sample invoices, whatever the user's own file holds by now.
    QTemporaryDir scratch;
    if (file.isEmpty())
        file = parser.isSet(screenshot) ? scratch.filePath(QStringLiteral("invoices.sqlite"))
                                        : InvoiceDatabase::defaultFile();
    // Nobody is there to close a message box while a screenshot is taken.
    if (parser.isSet(screenshot)) {
        VemoGridLib::setMessageHandler([](const VemoGridLib::Message& message) {
            QTextStream(stderr) << "vemo-demo: " << message.text << Qt::endl;
        });
    }
    MainWindow window(file);
    if (parser.isSet(screenshot))
        return writeScreenshot(window, parser.value(screenshot));
    window.show();
    return QApplication::exec();
}
