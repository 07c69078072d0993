// SPDX-License-Identifier: MIT
// VemoCalendar: its size, drawing, clicks and arrows, keys, texts and saved settings.
#include <VemoGridLib/MemoryPropertyBag.h>
#include <VemoGridLib/VemoArrow.h>
#include <VemoGridLib/VemoCalendar.h>
#include <VemoGridLib/clsDate.h>

#include "VemoTestSupport.h"
#include "dates/VemoCalendar_p.h"

#include <QApplication>
#include <QPainter>
#include <QRegularExpression>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

using namespace VemoGridLib;
using VemoTest::ScopedLocale;

namespace {

constexpr OleColor Green = 0x00C000;

// At 96 dpi a pixel is 15 twips.
QPoint pixelOf(int xTwips, int yTwips)
{
    return {xTwips / 15, yTwips / 15};
}

/// A calendar on `value`, its ring green so it stands apart from the day colours.
std::unique_ptr<VemoCalendar> calendar(const QDate& value, bool lunar)
{
    auto c = std::make_unique<VemoCalendar>();
    c->setValue(value);
    c->setLunarCalendar(lunar);
    c->setSelectColor(Green);
    return c;
}

/// Whether a pixel of `image` inside `twips` (scaled by `ratio`) is of colour `kind`.
bool anyPixel(const QImage& image, const QRect& twips, const QString& kind, qreal ratio)
{
    const QRect area(pixelOf(twips.left(), twips.top()) * ratio,
                     pixelOf(twips.right(), twips.bottom()) * ratio);
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QColor c = image.pixelColor(x, y);
            const bool match = kind == "GREEN"  ? c == QColor(0, 192, 0)
                               : kind == "RED"  ? c.red() > 200 && c.green() < 80 && c.blue() < 80
                               : kind == "BLUE" ? c.blue() > 200 && c.red() < 80 && c.green() < 80
                                                : c != Qt::white;
            if (match)
                return true;
        }
    }
    return false;
}

} // namespace

class tst_VemoCalendar : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
        QCOMPARE(QGuiApplication::primaryScreen()->logicalDotsPerInch(), 96);
    }

    void size_data()
    {
        QTest::addColumn<QByteArray>("locale");
        QTest::addColumn<bool>("lunar");
        QTest::addColumn<int>("height");
        QTest::addColumn<bool>("lunarAfterDrawing");
        QTest::newRow("simplified lunar") << QByteArray("zh_CN.UTF-8") << true << 167 << true;
        QTest::newRow("simplified plain") << QByteArray("zh_CN.UTF-8") << false << 127 << false;
        QTest::newRow("English clears lunar") << QByteArray("en_US.UTF-8") << true << 127 << false;
    }

    void size()
    {
        QFETCH(QByteArray, locale);
        QFETCH(bool, lunar);
        QFETCH(bool, lunarAfterDrawing);
        ScopedLocale scoped(locale);
        VemoCalendar cal;
        QStringList changes;
        connect(&cal, &VemoCalendar::PropertyChanged,
                [&](const QString& name) { changes << name; });
        cal.setLunarCalendar(lunar);
        cal.resize(400, 50);
        cal.grab();
        QTEST(cal.size().height(), "height");
        QCOMPARE(cal.width(), 187);
        QCOMPARE(cal.LunarCalendar(), lunarAfterDrawing);
        QCOMPARE(changes.count("LunarCalendar"), lunar && !lunarAfterDrawing ? 2 : 1);
    }

    void pixels_data()
    {
        QTest::addColumn<QByteArray>("locale");
        QTest::addColumn<bool>("lunar");
        QTest::addColumn<QDate>("value");
        QTest::addColumn<QRect>("twips");
        QTest::addColumn<QString>("kind");
        QTest::addColumn<bool>("present");
        QTest::addColumn<qreal>("ratio");
        const auto add = [](const char* name, const char* locale, bool lunar, QDate value,
                            QRect twips, const char* kind, bool present = true, qreal ratio = 1) {
            QTest::newRow(name) << QByteArray(locale) << lunar << value << twips << QString(kind)
                                << present << ratio;
        };
        const QDate sat10(2024, 2, 10), wed14(2024, 2, 14);
        const QRect days(0, 650, 2700, 1500);
        // The ring is centred on the right edge of the day number, here the 10th in column 7.
        add("ring plain", "en_US", false, sat10, QRect(2640, 945, 1, 1), "GREEN");
        add("ring plain x2", "en_US", false, sat10, QRect(2640, 945, 1, 1), "GREEN", true, 2);
        add("ring lunar", "zh_CN", true, sat10, QRect(2670, 1125, 1, 1), "GREEN");
        add("Sunday red", "en_US", false, wed14, QRect(0, 650, 220, 1200), "RED");
        add("Saturday blue", "en_US", false, wed14, QRect(2180, 650, 320, 1200), "BLUE");
        add("Tuesday black", "en_US", false, wed14, QRect(740, 650, 220, 1200), "RED", false);
        // The lunar text, in the day's colour, sits below the number: 春节 under Saturday the 10th.
        add("lunar text", "zh_CN", true, wed14, QRect(2300, 1150, 360, 100), "BLUE");
        // Outside the lunar tables the days are drawn plain, without a warning.
        add("before the tables", "zh_CN", true, QDate(1900, 1, 15), days, "INK");
        add("last day of the tables", "zh_CN", true, QDate(2100, 12, 31), days, "INK");
    }

    void pixels()
    {
        QFETCH(QByteArray, locale);
        QFETCH(bool, lunar);
        QFETCH(QDate, value);
        QFETCH(QRect, twips);
        QFETCH(QString, kind);
        QFETCH(qreal, ratio);
        ScopedLocale scoped(locale);
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
        const auto cal = calendar(value, lunar);
        QPixmap picture(cal->size() * ratio);
        picture.setDevicePixelRatio(ratio);
        cal->render(&picture);
        QTEST(anyPixel(picture.toImage(), twips, kind, ratio), "present");
    }

    void clicks_data()
    {
        QTest::addColumn<QDate>("value");
        QTest::addColumn<bool>("lunar");
        QTest::addColumn<QPoint>("twips");
        QTest::addColumn<QString>("arrow");  // clicked instead of the day under `twips`
        QTest::addColumn<QDate>("selected"); // null: the click selects nothing
        const auto add = [](const char* name, QDate value, bool lunar, QPoint twips, QDate selected,
                            const char* arrow = "") {
            QTest::newRow(name) << value << lunar << twips << QString(arrow) << selected;
        };
        // February 2024 starts on a Thursday (column 5) and has 29 days.
        const QDate feb(2024, 2, 10), none;
        add("row 0 first day", feb, false, {1690, 670}, QDate(2024, 2, 1));
        add("row 0 left of the 1st", feb, false, {1310, 670}, none);
        add("above the days", feb, false, {1690, 640}, none);
        add("last day", feb, false, {1690, 1470}, QDate(2024, 2, 29));
        add("past the last day", feb, false, {2070, 1470}, none);
        add("left of column 1", feb, false, {60, 870}, QDate(2024, 2, 3));
        add("plain rows", feb, false, {170, 1070}, QDate(2024, 2, 11));
        add("lunar rows", feb, true, {170, 1070}, QDate(2024, 2, 4));
        // June 2024 starts on a Saturday: its 30th is in a sixth row.
        add("sixth row", QDate(2024, 6, 15), false, {170, 1670}, QDate(2024, 6, 30));
        // The arrows step by a year or a month, onto the last day of a shorter month.
        add("year back", QDate(2024, 2, 29), false, {}, QDate(2023, 2, 28), "CA1");
        add("year forward", QDate(2024, 2, 29), false, {}, QDate(2025, 2, 28), "CA2");
        add("month forward", QDate(2024, 1, 31), false, {}, QDate(2024, 2, 29), "CA3");
        add("month back", QDate(2024, 3, 31), false, {}, QDate(2024, 2, 29), "CA4");
    }

    void clicks()
    {
        QFETCH(QDate, value);
        QFETCH(QPoint, twips);
        QFETCH(QString, arrow);
        QFETCH(QDate, selected);
        QFETCH(bool, lunar);
        ScopedLocale scoped("zh_CN.UTF-8");
        const auto cal = calendar(value, lunar);
        cal->show();
        QVERIFY(QTest::qWaitForWindowExposed(cal.get()));
        QSignalSpy clicks(cal.get(), &VemoCalendar::Click);
        if (arrow.isEmpty()) {
            const QPoint pixel = pixelOf(twips.x(), twips.y());
            QCOMPARE(cal->dayAt(pixel * 15), selected);
            QTest::mouseClick(cal.get(), Qt::LeftButton, {}, pixel);
            QCOMPARE(clicks.count(), 1);
        } else {
            auto* const button = cal->findChild<VemoArrow*>(arrow);
            QTest::mouseClick(button, Qt::LeftButton, {}, button->rect().center());
        }
        QCOMPARE(cal->Value(), selected.isValid() ? selected : value);
    }

    void keys()
    {
        const auto cal = calendar(QDate(2024, 2, 10), false);
        QList<QPair<short, short>> keys;
        connect(cal.get(), &VemoCalendar::KeyDown, [&](short& keyCode, short& shift) {
            keys.append({keyCode, shift});
        });
        QTest::keyClick(cal.get(), Qt::Key_Right, Qt::ShiftModifier);
        QTest::keyClick(cal->findChild<VemoArrow*>("CA2"), Qt::Key_Escape);
        // The Shift key itself goes down first.
        QCOMPARE(keys, (QList<QPair<short, short>>{{16, 1}, {39, 1}, {27, 0}}));
        QCOMPARE(cal->Value(), QDate(2024, 2, 10));
    }

    void texts_data()
    {
        QTest::addColumn<bool>("month"); // else a weekday column
        QTest::addColumn<int>("number");
        QTest::addColumn<LanguageIndex>("language");
        QTest::addColumn<QString>("text");
        QTest::newRow("December without 月") << true << 12 << SimplifiedChinese << "十二";
        QTest::newRow("traditional December") << true << 12 << TraditionalChinese << "十二月";
        QTest::newRow("English month") << true << 9 << English << "September";
        QTest::newRow("Wen") << false << 4 << English << "Wen";
    }

    void texts()
    {
        QFETCH(int, number);
        QFETCH(LanguageIndex, language);
        QFETCH(bool, month);
        QTEST(month ? calendarMonthName(number, language) : calendarWeekdayName(number, language),
              "text");
    }

    void lunarText_data()
    {
        QTest::addColumn<QDate>("day");
        QTest::addColumn<QString>("text");
        QTest::newRow("festival") << QDate(2024, 2, 10) << "春节";
        QTest::newRow("eve") << QDate(2024, 2, 9) << "除夕";
        // The eve test leaves the engine on the next day; the 29th still reads as itself.
        QTest::newRow("29th before a 30th") << QDate(2024, 2, 8) << "廿九";
        QTest::newRow("solar term") << QDate(2024, 2, 4) << "立春";
        QTest::newRow("first of a lunar month") << QDate(2024, 3, 10) << "二月";
        QTest::newRow("before the tables") << QDate(1900, 1, 30) << "";
        QTest::newRow("after the tables") << QDate(2101, 1, 1) << "";
    }

    void lunarText()
    {
        QFETCH(QDate, day);
        ScopedLocale scoped("zh_CN.UTF-8");
        clsDate engine;
        QTEST(calendarLunarText(engine, day), "text");
    }

    void properties()
    {
        QWidget host;
        host.setFont(QFont(QStringLiteral("DejaVu Serif"), 11));
        VemoCalendar saved(&host);
        saved.setValue(QDate(2023, 5, 6));
        saved.setSelectColor(Green);
        saved.setLunarCalendar(true);
        saved.setBackColor(0xEEEEEE);
        saved.setForeColor(0x800000);
        saved.setEnabled(false);
        saved.setFont(QFont(QStringLiteral("DejaVu Sans"), 12));
        saved.setBorderStyle(1);
        saved.setAppearance(0);
        MemoryPropertyBag bag;
        saved.WriteProperties(bag);
        // Through the saved form, as a container keeps it.
        VemoCalendar restored(&host);
        restored.ReadProperties(MemoryPropertyBag::fromJson(bag.toJson()));
        for (const char* name : {"Value", "SelectColor", "LunarCalendar", "BackColor", "ForeColor",
                                 "BorderStyle", "Appearance", "enabled", "font"})
            QCOMPARE(restored.property(name), saved.property(name));
        QCOMPARE(restored.findChild<VemoArrow*>("CA4")->Appearance(), 0);

        // A new control saves only its date and font; an empty bag gives today and the host's font.
        VemoCalendar fresh(&host);
        fresh.InitProperties();
        MemoryPropertyBag freshBag;
        fresh.WriteProperties(freshBag);
        QCOMPARE(freshBag.names(), (QStringList{"Value", "Font"}));
        restored.ReadProperties(MemoryPropertyBag());
        QCOMPARE(restored.Value(), QDate::currentDate());
        QCOMPARE(restored.font(), host.font());

        // A value of the wrong kind is refused on its own.
        MemoryPropertyBag wrong;
        wrong.WriteProperty("SelectColor", "red", QVariant());
        wrong.WriteProperty("BorderStyle", 1, 0);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("VemoCalendar ReadProperties"));
        fresh.ReadProperties(wrong);
        QCOMPARE(fresh.SelectColor(), 255u);
        QCOMPARE(fresh.BorderStyle(), 1);
    }
};

QTEST_MAIN(tst_VemoCalendar)
#include "tst_vemocalendar.moc"
