// SPDX-License-Identifier: MIT
// The check box editor: its two pictures, the text and Boolean forms of its state, and toggling.
#include "editors/VemoCheckBox.h"

#include "common/VbKeys.h"
#include "common/VemoError.h"
#include "editors/ICellEventReceiver.h"
#include "vb/VbConversion.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QtMath>

namespace VemoGridLib {

namespace {

const QString CheckedText = QStringLiteral(".");
const QString UncheckedText = QStringLiteral("`");

/// Side of both pictures in device-independent pixels.
constexpr int PictureSide = 13;

/// A box with a tick, or an empty one, drawn for `ratio` device pixels a pixel: the frame sits
/// on whole device pixels at every ratio, so it stays sharp.
QPixmap boxPicture(bool ticked, qreal ratio)
{
    const int device = qCeil(PictureSide * ratio);
    QPixmap picture(device, device);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.fillRect(QRectF(1, 1, PictureSide - 2, PictureSide - 2), Qt::white);
    painter.setPen(QPen(QColor(0x80, 0x80, 0x80), 1));
    painter.drawRect(QRectF(0.5, 0.5, PictureSide - 1, PictureSide - 1));
    if (ticked) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::black, 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.drawPolyline(QPolygonF({{3.5, 6.5}, {5.5, 8.5}, {9.5, 4.0}}));
    }
    return picture;
}

} // namespace

VemoCheckBox::VemoCheckBox(QWidget* parent)
    : CellEditor(parent)
    , m_imgChecked(new QLabel(this))
    , m_imgUnchecked(new QLabel(this))
{
    setFocusPolicy(Qt::StrongFocus);
    m_imgChecked->setObjectName(QStringLiteral("imgChecked"));
    m_imgUnchecked->setObjectName(QStringLiteral("imgUnchecked"));
    for (QLabel* const picture : {m_imgChecked, m_imgUnchecked})
        picture->installEventFilter(this);
    paintPictures();
    drawState();
}

VemoCheckBox::~VemoCheckBox() = default;

bool VemoCheckBox::Validate()
{
    return true;
}

bool VemoCheckBox::checkData()
{
    return true;
}

QString VemoCheckBox::Text() const
{
    return m_checked ? CheckedText : UncheckedText;
}

void VemoCheckBox::setText(const QString& text)
{
    m_checked = text == CheckedText;
    drawState();
}

QVariant VemoCheckBox::Value() const
{
    return m_checked;
}

void VemoCheckBox::setValue(const QVariant& value)
{
    bool checked = false;
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        break;
    case QMetaType::Bool:
        checked = value.toBool();
        break;
    case QMetaType::QString:
        checked = vb::CBool(value.toString());
        break;
    default:
        if (!value.canConvert<double>())
            throw VemoError::typeMismatch();
        checked = value.toDouble() != 0;
    }
    m_checked = checked;
    drawState();
}

void VemoCheckBox::keyPressEvent(QKeyEvent* event)
{
    const quint64 loads = loadCount();
    short keyCode = vbKeyCode(event);
    if (keyCode != 0) {
        short shift = vbShiftMask(event->modifiers());
        report("VemoCheckBox KeyDown",
               [&](ICellEventReceiver& host) { host.KeyDown(keyCode, shift); });
        if (loadCount() != loads)
            return;
        if (keyCode == vbKeySpace && !Locked())
            toggle();
    }
    short keyAscii = vbKeyAscii(event);
    if (keyAscii != 0)
        report("VemoCheckBox KeyPress", [&](ICellEventReceiver& host) { host.KeyPress(keyAscii); });
}

void VemoCheckBox::keyReleaseEvent(QKeyEvent* event)
{
    short keyCode = vbKeyCode(event);
    if (keyCode == 0 || event->isAutoRepeat())
        return;
    short shift = vbShiftMask(event->modifiers());
    report("VemoCheckBox KeyUp", [&](ICellEventReceiver& host) { host.KeyUp(keyCode, shift); });
}

void VemoCheckBox::mousePressEvent(QMouseEvent* event)
{
    mouseInput(event, this);
}

void VemoCheckBox::mouseMoveEvent(QMouseEvent* event)
{
    mouseInput(event, this);
}

void VemoCheckBox::mouseReleaseEvent(QMouseEvent* event)
{
    mouseInput(event, this);
}

void VemoCheckBox::mouseInput(QMouseEvent* event, QWidget* part)
{
    const quint64 loads = loadCount();
    const short button = reportMouse(event, part);
    const bool press =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (press && button == 1 && !Locked() && loadCount() == loads)
        toggle();
}

bool VemoCheckBox::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_imgChecked && watched != m_imgUnchecked)
        return CellEditor::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        // Handled here with the picture's own coordinates, so it must not reach the surface too.
        mouseInput(static_cast<QMouseEvent*>(event), static_cast<QWidget*>(watched));
        return true;
    default:
        return false;
    }
}

bool VemoCheckBox::reportsExitLocus() const
{
    return false;
}

void VemoCheckBox::toggle()
{
    m_checked = !m_checked;
    report("VemoCheckBox Change", [](ICellEventReceiver& host) { host.Change(); });
    drawState();
}

void VemoCheckBox::drawState()
{
    m_imgChecked->setVisible(m_checked);
    m_imgUnchecked->setVisible(!m_checked);
}

void VemoCheckBox::resizeEvent(QResizeEvent* event)
{
    CellEditor::resizeEvent(event);
    centrePictures();
}

void VemoCheckBox::showEvent(QShowEvent* event)
{
    CellEditor::showEvent(event);
    // The editor may have moved to a screen of another pixel ratio while it was hidden.
    if (devicePixelRatioF() != m_picturesRatio)
        paintPictures();
    drawState();
}

void VemoCheckBox::paintPictures()
{
    m_picturesRatio = devicePixelRatioF();
    m_imgChecked->setPixmap(boxPicture(true, m_picturesRatio));
    m_imgUnchecked->setPixmap(boxPicture(false, m_picturesRatio));
    for (QLabel* const picture : {m_imgChecked, m_imgUnchecked})
        picture->resize(PictureSide, PictureSide);
    centrePictures();
}

void VemoCheckBox::centrePictures()
{
    const QPoint topLeft((width() - PictureSide) / 2, (height() - PictureSide) / 2);
    m_imgChecked->move(topLeft);
    m_imgUnchecked->move(topLeft);
}

} // namespace VemoGridLib
