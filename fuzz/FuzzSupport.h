// SPDX-License-Identifier: MIT
// What both fuzz targets share: an offscreen QApplication (fonts need a GUI application) and
// silence from Qt's warnings about the odd inputs the fuzzer makes.
#pragma once

#include <QApplication>
#include <QtGlobal>

namespace VemoFuzz {

inline void startApplication()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    static int argc = 1;
    static char name[] = "fuzz";
    static char* argv[] = {name, nullptr};
    static QApplication application(argc, argv);
}

} // namespace VemoFuzz
