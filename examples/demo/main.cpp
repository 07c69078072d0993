// SPDX-License-Identifier: MIT
// vemo-demo: the VemoGridLib invoice application. `--database FILE` opens another invoice
// file; `--screenshot FILE` renders the window without showing it (also on the offscreen
// platform), with the product list of the open invoice's last line dropped down, writes it to
// FILE as a PNG and exits.
#include "InvoiceDatabase.h"
#include "InvoiceForm.h"
#include "MainWindow.h"

#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/Messages.h>
#include <VemoGridLib/Twips.h>
#include <VemoGridLib/VemoComboBox.h>
#include <VemoGridLib/VemoGrid.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

/// Clicks the middle of the grid's current cell, as a user would, which opens its editor.
void clickCurrentCell(VemoGridLib::VemoGrid& grid)
{
    using namespace VemoGridLib;
    QWidget* viewport = grid.hostedGrid()->viewport();
    // The cell's place is in twips of the grid; the viewport sits inside the hosted grid's frame.
    const QPoint centre = QPoint(twipsToPixelsX(grid.CellLeft() + grid.CellWidth() / 2, &grid),
                                 twipsToPixelsY(grid.CellTop() + grid.CellHeight() / 2, &grid)) -
                          viewport->pos();
    const QPoint global = viewport->mapToGlobal(centre);
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, centre, global, Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                          Qt::NoModifier);
        QApplication::sendEvent(viewport, &event);
    }
}

int writeScreenshot(MainWindow& window, const QString& file)
{
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.show();
    QApplication::processEvents();
    QPixmap shot = window.grab();
    if (InvoiceForm* form = window.form()) {
        VemoGridLib::VemoGrid& grid = *form->linesGrid();
        grid.setRow(grid.Rows() - 1);
        grid.setCol(InvoiceForm::ColProduct);
        clickCurrentCell(grid);
        QApplication::processEvents();
        // The list is a window of its own, which the window's grab leaves out: it is drawn in,
        // under the cell as on a screen wider than the offscreen one.
        for (auto* combo : grid.findChildren<VemoGridLib::VemoComboBox*>()) {
            if (!combo->isVisible())
                continue;
            QWidget* list = combo->list()->window();
            list->setAttribute(Qt::WA_DontShowOnScreen);
            combo->DropDown();
            QApplication::processEvents();
            shot = window.grab();
            QPainter(&shot).drawPixmap(combo->mapTo(&window, QPoint(0, combo->height())),
                                       list->grab());
        }
    }
    if (!shot.save(file, "PNG")) {
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
