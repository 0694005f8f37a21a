#pragma once

#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QString>

#include "examples/inspector/picture.h"

namespace inspector {

/// Shows one picture, or says why there is none, in the part of it and at the size that the user
/// chooses.
class ImageView : public QGraphicsView {
    Q_OBJECT

  public:
    explicit ImageView(QWidget* parent = nullptr);

    void SetPicture(Picture picture);
    /// Shows a text in place of a picture.
    void SetNothing(const QString& text);
    [[nodiscard]] bool HasPicture() const { return !m_item->pixmap().isNull(); }
    /// Every how many-th pixel of the image is shown.
    [[nodiscard]] int Step() const { return m_step; }
    [[nodiscard]] QPixmap Shown() const { return m_item->pixmap(); }

    /// The whole picture, also while the window's size changes.
    void Fit();
    /// One pixel of the image to one of the screen.
    void ShowActualSize();
    void ZoomIn();
    void ZoomOut();

  signals:
    /// Screen pixels to one of the image.
    void ZoomChanged(double zoom);
    /// The image's pixel below the mouse, or (-1, -1), and its colour.
    void PointedAt(QPoint pixel, QRgb color);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void drawForeground(QPainter* painter, const QRectF& rectangle) override;

  private:
    void SetZoom(double zoom);
    void ApplyFit();
    [[nodiscard]] double Zoom() const { return transform().m11() / m_step; }

    QGraphicsScene m_scene;
    QGraphicsPixmapItem* m_item;
    QImage m_image;
    QString m_text;
    int m_step = 1;  ///< image pixels to one of the picture
    bool m_fits = true;
};

}  // namespace inspector
