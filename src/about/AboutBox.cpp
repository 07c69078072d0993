// SPDX-License-Identifier: MIT
#include "about/AboutBox.h"

#include "common/Messages.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

namespace VemoGridLib {

namespace {

// The project's addresses: its home page, and its README, which is the library's documentation.
constexpr QLatin1StringView WebSiteUrl("https://github.com/vemogridlib/vemogridlib");
constexpr QLatin1StringView HelpUrl("https://github.com/vemogridlib/vemogridlib#readme");

// As in the LICENSE file at the root of the sources.
constexpr QLatin1StringView CopyrightLine("Copyright (c) 2026 The VemoGridLib developers");

QLabel* addLabel(QVBoxLayout* layout, const char* name, const QString& text)
{
    auto* label = new QLabel(text);
    label->setObjectName(QLatin1StringView(name));
    layout->addWidget(label);
    return label;
}

// A label holding one link, opened through shellOpen rather than by the label itself.
void addLink(QVBoxLayout* layout, const char* name, const QString& caption, QLatin1StringView url)
{
    QLabel* label = addLabel(
        layout, name, QStringLiteral("<a href=\"%1\">%2</a>").arg(url, caption.toHtmlEscaped()));
    label->setTextFormat(Qt::RichText);
    label->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    label->setOpenExternalLinks(false);
    QObject::connect(label, &QLabel::linkActivated, label,
                     [](const QString& link) { shellOpen(link); });
}

} // namespace

AboutBox::AboutBox(QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(QStringLiteral("About VemoGridLib"));
    auto* layout = new QVBoxLayout(this);
    QLabel* name = addLabel(layout, "lblName", QStringLiteral("VemoGridLib"));
    QFont bold = name->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.5);
    name->setFont(bold);
    addLabel(layout, "lblVersion",
             QStringLiteral("Version %1").arg(QLatin1StringView(VEMOGRIDLIB_VERSION_STRING)));
    addLabel(layout, "lblQtVersion",
             QStringLiteral("Running on Qt %1").arg(QLatin1StringView(qVersion())));
    addLabel(layout, "lblLicence",
             QStringLiteral("Released under the MIT License.\n%1").arg(CopyrightLine));
    addLink(layout, "lblWebSite", QStringLiteral("Project web site"), WebSiteUrl);
    addLink(layout, "lblHelp", QStringLiteral("Help and documentation"), HelpUrl);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

AboutBox::~AboutBox() = default;

void showAbout(QWidget* parent)
{
    AboutBox box(parent);
    box.exec();
}

} // namespace VemoGridLib
