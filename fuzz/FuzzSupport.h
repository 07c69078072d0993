// SPDX-License-Identifier: MIT
// What both fuzz targets share: an offscreen QApplication (fonts need a GUI application),
// silence from Qt's warnings about the odd inputs the fuzzer makes, and reading the input.
#pragma once

#include <VemoGridLib/MemoryPropertyBag.h>

#include <QApplication>
#include <QtGlobal>

#include <cstddef>
#include <cstdint>

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

/// The fuzzer's input read as a saved form in JSON; `error` says why it was refused.
inline VemoGridLib::MemoryPropertyBag bagFrom(const std::uint8_t* data, std::size_t size,
                                              QString& error)
{
    return VemoGridLib::MemoryPropertyBag::fromJson(
        QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)), &error);
}

} // namespace VemoFuzz
