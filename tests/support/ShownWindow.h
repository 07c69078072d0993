// SPDX-License-Identifier: MIT
// Shows a window and makes it active, for the tests of focus and drop-down windows.
#pragma once

#include <QTest>
#include <QWidget>

namespace VemoTest {

/// Shows `window`, activates it and waits until it is the active window.
inline bool showActive(QWidget& window)
{
    window.show();
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window);
}

} // namespace VemoTest
