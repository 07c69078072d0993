// SPDX-License-Identifier: MIT
// The Python that reads the exported worksheets back (the Excel read-back tests).
#pragma once

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QString>
#include <QStringList>

namespace VemoTest {

/// The interpreter that can import xlrd, or an empty string. Debian's python3-xlrd lives in
/// /usr/bin/python3, which a python3 earlier on PATH (pyenv, a venv) may not see.
inline QString pythonWithXlrd()
{
    const QStringList candidates = {QStringLiteral("/usr/bin/python3"),
                                    QStandardPaths::findExecutable(QStringLiteral("python3"))};
    for (const QString& python : candidates) {
        if (python.isEmpty() || !QFileInfo(python).isExecutable())
            continue;
        QProcess probe;
        probe.start(python, {QStringLiteral("-c"), QStringLiteral("import xlrd")});
        if (probe.waitForFinished(10000) && probe.exitStatus() == QProcess::NormalExit &&
            probe.exitCode() == 0)
            return python;
    }
    return {};
}

} // namespace VemoTest
