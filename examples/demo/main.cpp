// SPDX-License-Identifier: MIT
// vemo-demo: the VemoGridLib demo application. `--screenshot FILE` renders the window without
// showing it (also on the offscreen platform), with the form's product list open, writes it to
// FILE as a PNG and exits.
#include "DemoWindow.h"
#include "InvoiceListView.h"

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
#include <QTextStream>

namespace {

/// Clicks the middle of the form's current cell, as a user would, which opens its editor.
void clickCurrentCell(const DemoWindow& window)
{
    using namespace VemoGridLib;
    auto* grid = window.findChild<VemoGrid*>();
    if (!grid)
        return;
    QWidget* viewport = grid->hostedGrid()->viewport();
    // The cell's place is in twips of the grid; the viewport sits inside the hosted grid's frame.
    const QPoint centre = QPoint(twipsToPixelsX(grid->CellLeft() + grid->CellWidth() / 2, grid),
                                 twipsToPixelsY(grid->CellTop() + grid->CellHeight() / 2, grid)) -
                          viewport->pos();
    const QPoint global = viewport->mapToGlobal(centre);
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, centre, global, Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                          Qt::NoModifier);
        QApplication::sendEvent(viewport, &event);
    }
}

int writeScreenshot(DemoWindow& window, const QString& file)
{
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.show();
    QApplication::processEvents();
    clickCurrentCell(window);
    QApplication::processEvents();
    // The click opened the Product cell's list editor: its list opens too, drawn into the shot
    // (it is a window of its own, which the window's grab leaves out).
    QPixmap shot = window.grab();
    auto* grid = window.findChild<VemoGridLib::VemoGrid*>();
    for (auto* combo : window.findChildren<VemoGridLib::VemoComboBox*>()) {
        if (!grid || !grid->isAncestorOf(combo) || !combo->isVisible())
            continue;
        QWidget* list = combo->list()->window();
        list->setAttribute(Qt::WA_DontShowOnScreen);
        combo->DropDown();
        QApplication::processEvents();
        shot = window.grab();
        QPainter(&shot).drawPixmap(window.mapFromGlobal(list->pos()), list->grab());
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
    QApplication::setApplicationName(QStringLiteral("vemo-demo"));
    QApplication::setApplicationVersion(QStringLiteral(VEMOGRIDLIB_VERSION_STRING));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("The VemoGridLib demo: a VemoGrid stock entry form, and a FlexGrid of %1 "
                       "generated invoices.")
            .arg(InvoiceListView::InvoiceCount));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption screenshot(
        QStringLiteral("screenshot"),
        QStringLiteral("Render the window to the PNG <file> without showing it, then exit."),
        QStringLiteral("file"));
    parser.addOption(screenshot);
    parser.process(app);

    // Nobody is there to close a message box of the grid's while a screenshot is taken.
    if (parser.isSet(screenshot)) {
        VemoGridLib::setMessageHandler([](const VemoGridLib::Message& message) {
            QTextStream(stderr) << "vemo-demo: " << message.text << Qt::endl;
        });
    }
    DemoWindow window;
    if (parser.isSet(screenshot))
        return writeScreenshot(window, parser.value(screenshot));
    window.show();
    return QApplication::exec();
}
