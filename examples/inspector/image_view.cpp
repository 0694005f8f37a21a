#include "examples/inspector/image_view.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <cmath>
#include <memory>

namespace inspector {
namespace {

constexpr double kZoomStep = 1.25;
constexpr double kLeastZoom = 1.0 / 64;
constexpr double kMostZoom = 64;
constexpr int kMargin = 12;
constexpr int kMostTextWidth = 420;

/// The image takes the picture's memory, which can be large.
QImage ImageOf(Picture picture) {
    auto held = std::make_unique<std::vector<std::uint32_t>>(std::move(picture.pixels));
    const auto* bytes = reinterpret_cast<const uchar*>(held->data());
    const auto release = [](void* pixels) {
        delete static_cast<std::vector<std::uint32_t>*>(pixels);
    };
    return {
        bytes,   picture.width, picture.height, picture.width * qsizetype{4}, QImage::Format_RGB32,
        release, held.release()};
}

}  // namespace

ImageView::ImageView(QWidget* parent) : QGraphicsView(parent), m_item(new QGraphicsPixmapItem) {
    m_scene.addItem(m_item);
    setScene(&m_scene);
    setDragMode(ScrollHandDrag);
    setBackgroundBrush(QColor(0x5a, 0x5d, 0x62));
    setFrameShape(NoFrame);
    setViewportUpdateMode(FullViewportUpdate);
    setMouseTracking(true);
    // Files are dropped on the window.
    setAcceptDrops(false);
}

void ImageView::SetPicture(Picture picture) {
    m_text = QString::fromStdString(picture.problem);
    if (picture.pixels.empty()) {
        SetNothing(m_text);
        return;
    }
    const QSize before = m_image.size();
    m_step = picture.step;
    m_image = ImageOf(std::move(picture));
    m_item->setPixmap(QPixmap::fromImage(m_image));
    m_scene.setSceneRect(m_item->boundingRect());
    if (m_image.size() != before || m_fits) {
        Fit();
    }
}

void ImageView::SetNothing(const QString& text) {
    m_text = text;
    m_image = {};
    m_item->setPixmap({});
    m_scene.setSceneRect({});
    resetTransform();
    viewport()->update();
    emit ZoomChanged(0);
}

void ImageView::Fit() {
    m_fits = true;
    ApplyFit();
}

void ImageView::ApplyFit() {
    if (!HasPicture()) {
        return;
    }
    const QSizeF room = maximumViewportSize() - QSize(2 * kMargin, 2 * kMargin);
    const QSizeF size = m_item->boundingRect().size();
    const double scale = std::min(room.width() / size.width(), room.height() / size.height());
    SetZoom(std::max(scale, 1e-3) / m_step);
}

void ImageView::ShowActualSize() {
    m_fits = false;
    SetZoom(1);
}

void ImageView::ZoomIn() {
    m_fits = false;
    SetZoom(std::min(Zoom() * kZoomStep, kMostZoom));
}

void ImageView::ZoomOut() {
    m_fits = false;
    SetZoom(std::max(Zoom() / kZoomStep, std::min(kLeastZoom, Zoom())));
}

void ImageView::SetZoom(double zoom) {
    if (!HasPicture()) {
        return;
    }
    const double scale = zoom * m_step;
    setTransform(QTransform::fromScale(scale, scale));
    // Enlarged pixels keep their edges.
    m_item->setTransformationMode(scale < 1 ? Qt::SmoothTransformation : Qt::FastTransformation);
    emit ZoomChanged(zoom);
}

void ImageView::resizeEvent(QResizeEvent* event) {
    QGraphicsView::resizeEvent(event);
    if (m_fits) {
        ApplyFit();
    }
}

void ImageView::wheelEvent(QWheelEvent* event) {
    const int turned = event->angleDelta().y();
    if (!event->modifiers().testFlag(Qt::ControlModifier) || turned == 0) {
        QGraphicsView::wheelEvent(event);
        return;
    }
    m_fits = false;
    setTransformationAnchor(AnchorUnderMouse);
    // One notch of a usual wheel turns by 120.
    SetZoom(std::clamp(Zoom() * std::pow(kZoomStep, turned / 120.0), std::min(kLeastZoom, Zoom()),
                       kMostZoom));
    setTransformationAnchor(AnchorViewCenter);
    event->accept();
}

void ImageView::mouseMoveEvent(QMouseEvent* event) {
    QGraphicsView::mouseMoveEvent(event);
    const QPointF at = mapToScene(event->pos());
    const QPoint pixel(static_cast<int>(std::floor(at.x())), static_cast<int>(std::floor(at.y())));
    if (m_image.valid(pixel)) {
        emit PointedAt(pixel * m_step, m_image.pixel(pixel));
    } else {
        emit PointedAt({-1, -1}, 0);
    }
}

void ImageView::leaveEvent(QEvent* event) {
    QGraphicsView::leaveEvent(event);
    emit PointedAt({-1, -1}, 0);
}

void ImageView::drawForeground(QPainter* painter, const QRectF& /*rectangle*/) {
    if (m_text.isEmpty()) {
        return;
    }
    painter->resetTransform();
    const QRect room = viewport()->rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
    const int place =
        HasPicture() ? int{Qt::AlignHCenter} | int{Qt::AlignBottom} : int{Qt::AlignCenter};
    const int flags = int{Qt::TextWordWrap} | place;
    QRect column = room;
    column.setWidth(std::min(room.width(), kMostTextWidth));
    column.moveCenter(room.center());
    const QRect text = painter->boundingRect(column, flags, m_text);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(0, 0, 0, 110));
    painter->drawRoundedRect(text.adjusted(-14, -10, 14, 10), 6, 6);
    painter->setPen(Qt::white);
    painter->drawText(column, flags, m_text);
}

}  // namespace inspector
