// SPDX-License-Identifier: MIT
// How a VemoGrid reads: text against its cell under a light and a dark palette, grid lines and
// check boxes on scaled screens, and numbers too wide for their column.
#include "VemoGridTestSupport.h"
#include "grid/VemoGridPictures_p.h"
#include <VemoGridLib/OleColor.h>
#include <VemoGridLib/VemoComboBox.h>

#include <QHelpEvent>
#include <QImage>
#include <QLineEdit>
#include <QStyle>
#include <QStyleFactory>
#include <QToolTip>

using namespace VemoGridLib;
using namespace VemoTest;

namespace {

QPalette darkPalette()
{
    QPalette dark(QColor(53, 53, 53), QColor(53, 53, 53));
    dark.setColor(QPalette::Base, QColor(42, 42, 42));
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::WindowText, Qt::white);
    dark.setColor(QPalette::ButtonText, Qt::white);
    dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
    dark.setColor(QPalette::HighlightedText, Qt::black);
    return dark;
}

/// The grid's viewport drawn into an image of `ratio` device pixels per pixel.
QImage rendered(const VemoGrid& grid, qreal ratio = 1)
{
    QWidget* const view = grid.hostedGrid()->viewport();
    QImage image(view->size() * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    view->render(&image);
    return image;
}

/// The lengths of the runs of `color` along a line of pixels to the image's edge.
QList<int> runsOf(const QImage& image, QPoint from, QPoint step, QRgb color)
{
    QList<int> runs;
    int run = 0;
    for (QPoint at = from; image.rect().contains(at); at += step) {
        if (image.pixel(at) == color) {
            ++run;
        } else if (run > 0) {
            runs << run;
            run = 0;
        }
    }
    return runs;
}

} // namespace

class TestVemoGridLook : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
        QFont font(QStringLiteral("DejaVu Sans"), 9);
        font.setStyleStrategy(QFont::NoAntialias); // text ink is exactly the text colour
        QApplication::setFont(font);
        QVERIFY(QGuiApplication::primaryScreen()->logicalDotsPerInch() == 96);
    }

    void cleanup() { QApplication::setPalette(QApplication::style()->standardPalette()); }

    void textReads_data()
    {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }

    void textReads()
    {
        QFETCH(bool, dark);
        if (dark)
            QApplication::setPalette(darkPalette());
        const QPalette palette = QApplication::palette();
        const auto grid = shownGrid(QStringLiteral("|Name|Locked|Sel"), 3);
        QVERIFY(grid);
        grid->Column(2)->setLocked(true);
        grid->setRows(4);
        FlexGrid* const flex = grid->hostedGrid();
        for (int row = 0; row < 4; ++row) {
            for (int col = 0; col < 4; ++col)
                flex->setTextMatrix(row, col, QStringLiteral("HHHH"));
        }
        flex->setRow(1);
        flex->setCol(3);
        flex->setRowSel(3);
        const QImage image = rendered(*grid);

        // The selection keeps the palette's own pairing; every other cell reads at 4.5:1.
        const double selection = contrastRatio(palette.color(QPalette::Highlight),
                                               palette.color(QPalette::HighlightedText));
        const struct
        {
            const char* name;
            int row, col;
            double least;
        } cells[] = {{"column header", 0, 1, 4.5}, {"row header", 1, 0, 4.5},
                     {"first band", 1, 1, 4.5},    {"second band", 2, 1, 4.5},
                     {"read-only", 2, 2, 4.5},     {"selected", 2, 3, std::min(4.5, selection)}};
        for (const auto& cell : cells) {
            const QRect rect = cellRect(*grid, cell.row, cell.col).adjusted(3, 3, -3, -3);
            const QColor back = image.pixel(rect.bottomLeft());
            double best = 1;
            for (int y = rect.top(); y <= rect.bottom(); ++y) {
                for (int x = rect.left(); x <= rect.right(); ++x)
                    best = std::max(best, contrastRatio(image.pixel(x, y), back));
            }
            QVERIFY2(best >= cell.least, cell.name);
        }

        // The editor opened on a band cell, and a combo box's field (the system text colour
        // on white) read as the cells do.
        clickCell(*grid, 2, 1);
        VemoComboBox combo;
        for (const auto* field : {qobject_cast<QLineEdit*>(QApplication::focusWidget()),
                                  combo.findChild<QLineEdit*>()}) {
            QVERIFY(field);
            const QPalette colours = field->palette();
            QVERIFY(contrastRatio(colours.color(QPalette::Text), colours.color(QPalette::Base)) >=
                    4.5);
        }
    }

    void scaledScreen_data()
    {
        QTest::addColumn<qreal>("ratio");
        QTest::newRow("1.25") << 1.25;
        QTest::newRow("1.5") << 1.5;
        QTest::newRow("2") << 2.0;
    }

    void scaledScreen()
    {
        QFETCH(qreal, ratio);
        const auto grid = shownGrid(QStringLiteral("|A|B|C|D|E|Box"), 3);
        QVERIFY(grid);
        FlexGrid* const flex = grid->hostedGrid();
        // Columns of 77..81 pixels put the lines at every fraction of a device pixel.
        for (int col = 1; col < 6; ++col)
            flex->setColWidth(col, (76 + col) * 15);
        grid->setColType(6, eCheckBox);
        flex->setColWidth(6, 40 * 15);
        const QImage image = rendered(*grid, ratio);
        const QRgb line = toQColor(flex->GridColor()).rgb();
        const int wide = qMax(1, qRound(ratio));

        // Across the data columns below the text, then down the first data column.
        const QRect cell = cellRect(*grid, 1, 1);
        const QList<int> across =
            runsOf(image, QPoint(qRound(cell.left() * ratio), qRound((cell.bottom() - 2) * ratio)),
                   {1, 0}, line);
        const QList<int> down =
            runsOf(image, QPoint(qRound((cell.left() + 4) * ratio), 0), {0, 1}, line);
        QCOMPARE(across + down, QList<int>(9, wide));

        // The checked box of row 2 is the picture made at the ratio, pixel for pixel (a scaled
        // 1x picture repeats some of its pixels and has uneven sides).
        grid->setTextMatrix(2, 6, QStringLiteral("True"));
        const QImage boxes = rendered(*grid, ratio);
        const QImage picture =
            GridPictures::checked(ratio).toImage().convertToFormat(QImage::Format_RGB32);
        const QRect box = cellRect(*grid, 2, 6);
        QRect drawn;
        for (int y = qRound(box.top() * ratio); y < qRound(box.bottom() * ratio); ++y) {
            for (int x = qRound(box.left() * ratio); x < qRound(box.right() * ratio); ++x) {
                if (boxes.pixel(x, y) == picture.pixel(0, 0))
                    drawn |= QRect(x, y, 1, 1);
            }
        }
        QCOMPARE(boxes.copy(drawn), picture);
    }

    void wideNumbers_data()
    {
        QTest::addColumn<int>("pixels");
        QTest::addColumn<bool>("hashes");
        QTest::newRow("narrow") << 40 << true;
        QTest::newRow("wide") << 120 << false;
    }

    void wideNumbers()
    {
        QFETCH(int, pixels);
        QFETCH(bool, hashes);
        const QString number = QStringLiteral("1,234,567.89");
        const auto grid = shownGrid(QStringLiteral("|Amount|Text"), 2);
        QVERIFY(grid);
        FlexGrid* const flex = grid->hostedGrid();
        grid->setColType(1, eCurrency);
        grid->setTextMatrix(1, 1, number);
        flex->setColAlignment(2, Flex::flexAlignRightCenter);
        const int content = pixels - 1 - 4; // the grid line and the text margins
        const int fit = content / QFontMetrics(flex->font()).horizontalAdvance(u'#');
        grid->setTextMatrix(1, 2, hashes ? QString(fit, u'#') : number);
        for (int col = 1; col < 3; ++col)
            flex->setColWidth(col, pixels * 15);
        flex->setRow(2);

        // The number cell draws what the text column shows; the text stays whole.
        const QImage image = rendered(*grid);
        const QRect amount = cellRect(*grid, 1, 1);
        const QRect text = cellRect(*grid, 1, 2);
        QCOMPARE(image.copy(amount), image.copy(text));
        QCOMPARE(grid->TextMatrix(1, 1), number);
        // A text column clips as before: the same number there draws digits, not '#'.
        grid->setTextMatrix(1, 2, number);
        QCOMPARE(rendered(*grid).copy(text) == image.copy(amount), !hashes);

        QToolTip::hideText();
        QHelpEvent help(QEvent::ToolTip, amount.center(),
                        flex->viewport()->mapToGlobal(amount.center()));
        QApplication::sendEvent(flex->viewport(), &help);
        QCOMPARE(QToolTip::text(), hashes ? number : QString());
    }
};

QTEST_MAIN(TestVemoGridLook)
#include "tst_vemogrid_look.moc"
