// SPDX-License-Identifier: MIT
// The about box: what it shows, where its links lead, and showAbout's modal run.
#include <VemoGridLib/AboutBox.h>
#include <VemoGridLib/Messages.h>

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QTest>
#include <QTimer>

using namespace VemoGridLib;

class TestAboutBox : public QObject
{
    Q_OBJECT

private slots:
    void showsNameVersionsAndLicence()
    {
        AboutBox box;
        const auto text = [&](const char* name) {
            return box.findChild<QLabel*>(name)->text();
        };
        QCOMPARE(text("lblName"), QStringLiteral("VemoGridLib"));
        QVERIFY(text("lblVersion").endsWith(QStringLiteral(" 3.0.15")));
        QVERIFY(text("lblQtVersion").endsWith(QLatin1StringView(qVersion())));
        // The copyright line is the LICENSE file's, so the two cannot drift apart.
        QFile licence(QStringLiteral(VEMO_SOURCE_DIR "/LICENSE"));
        QVERIFY(licence.open(QIODevice::ReadOnly | QIODevice::Text));
        const QString copyright = QString::fromUtf8(licence.readAll()).section(u'\n', 2, 2);
        QVERIFY(copyright.startsWith(u"Copyright"));
        QVERIFY(text("lblLicence").contains(QStringLiteral("MIT")));
        QVERIFY(text("lblLicence").contains(copyright));
    }

    void linksOpenThroughShellOpen_data()
    {
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("url");
        QTest::newRow("web site") << "lblWebSite"
                                  << "https://github.com/vemogridlib/vemogridlib";
        QTest::newRow("help") << "lblHelp"
                              << "https://github.com/vemogridlib/vemogridlib#readme";
    }

    void linksOpenThroughShellOpen()
    {
        QFETCH(QString, label);
        QFETCH(QString, url);
        QStringList opened;
        const ShellOpenHandler previous = setShellOpenHandler([&](const QString& target) {
            opened << target;
            return true;
        });
        AboutBox box;
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
        // A real click on the start of the link's text, as a user would.
        auto* link = box.findChild<QLabel*>(label);
        const QPoint onText(link->contentsRect().left() + 4, link->height() / 2);
        QTest::mouseClick(link, Qt::LeftButton, Qt::NoModifier, onText);
        setShellOpenHandler(previous);
        QCOMPARE(opened, QStringList{url});
    }

    void showAboutRunsModallyUntilClosed()
    {
        QWidget parent;
        bool modalOverParent = false;
        QTimer::singleShot(0, this, [&] {
            auto* box = parent.findChild<AboutBox*>();
            modalOverParent = box && QApplication::activeModalWidget() == box;
            if (box)
                box->reject();
        });
        showAbout(&parent);
        QVERIFY(modalOverParent);
        QVERIFY(!parent.findChild<AboutBox*>());
    }
};

QTEST_MAIN(TestAboutBox)
#include "tst_aboutbox.moc"
