// SPDX-License-Identifier: MIT
// A cell editor's host that logs each report with its arguments, and can act inside a report.
#pragma once

#include <VemoGridLib/ICellEventReceiver.h>

#include <QStringList>

#include <functional>

namespace VemoTest {

/// Logs each report as its name and numeric arguments ("KeyDown 32 0"), leaving out the key
/// reports of Shift, Ctrl and Alt themselves (QTest presses them around a key). The hooks run
/// inside a report and may change its KeyCode, KeyAscii or Button, as a host may.
struct RecordingReceiver : VemoGridLib::ICellEventReceiver
{
    using Hook = std::function<void(short&)>;
    static void leaveAlone(short&) {}
    static void doNothing() {}

    QStringList log;
    Hook onKeyDown = leaveAlone, onKeyPress = leaveAlone, onMouseDown = leaveAlone;
    std::function<void()> onButtonClick = doNothing;

    void Change() override { note("Change"); }
    void BeforeDropDown() override { note("BeforeDropDown"); }
    void CellComboSelect(int index, const QString&) override { note("CellComboSelect", index); }
    void CellComboClick(const QString&) override { note("CellComboClick"); }
    void Click() override { note("Click"); }
    void DblClick() override { note("DblClick"); }
    void KeyDown(short& code, short& shift) override
    {
        noteKey("KeyDown", code, shift), onKeyDown(code);
    }
    void KeyPress(short& ascii) override { note("KeyPress", ascii), onKeyPress(ascii); }
    void KeyUp(short& code, short& shift) override { noteKey("KeyUp", code, shift); }
    void MouseDown(short& b, short& s, float& x, float& y) override
    {
        note("MouseDown", b, s, x, y), onMouseDown(b);
    }
    void MouseMove(short& b, short& s, float& x, float& y) override
    {
        note("MouseMove", b, s, x, y);
    }
    void MouseUp(short& b, short& s, float& x, float& y) override { note("MouseUp", b, s, x, y); }
    void ButtonClick() override { note("ButtonClick"), onButtonClick(); }
    void ExitLocus() override { note("ExitLocus"); }

private:
    template <typename... Args>
    void note(const char* name, const Args&... args)
    {
        QStringList text{QLatin1String(name)};
        (text << ... << QString::number(args));
        log << text.join(' ');
    }
    void noteKey(const char* name, short code, short shift)
    {
        if (code < 16 || code > 18) // vbKeyShift, vbKeyControl, vbKeyMenu
            note(name, code, shift);
    }
};

} // namespace VemoTest
