// SPDX-License-Identifier: MIT
// The library's about box: its name and version, the Qt it runs on, its licence and its links.
#pragma once

#include <VemoGridLib/VemoGridLibExport.h>

#include <QDialog>

namespace VemoGridLib {

/// A small dialog naming the library, its version, the Qt version it runs on and its licence,
/// with links to the project's web site and help. The links open through `shellOpen`, so a host
/// (or a test) that installed its own handler decides how they are opened. It may be shown
/// modally with `showAbout` or on its own with show().
class VEMOGRIDLIB_EXPORT AboutBox : public QDialog
{
    Q_OBJECT

public:
    explicit AboutBox(QWidget* parent = nullptr);
    ~AboutBox() override;
};

/// Runs the about box modally over `parent` and returns when it is closed.
VEMOGRIDLIB_EXPORT void showAbout(QWidget* parent = nullptr);

} // namespace VemoGridLib
