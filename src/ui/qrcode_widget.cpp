#include "ui/qrcode_widget.h"

#include <QImage>
#include <QPainter>

QrcodeWidget::QrcodeWidget(QWidget* parent) : QWidget(parent)
{
}

QrcodeWidget::~QrcodeWidget()
{
    clear();
}

void QrcodeWidget::generateString(const QString& text)
{
    if (text.isEmpty()) {
        clear();
        return;
    }
    clear();
    const QByteArray utf8 = text.toUtf8();
    qr_code = QRcode_encodeString(utf8.constData(), 0, QR_ECLEVEL_L, QR_MODE_8, 1);
    update();
}

void QrcodeWidget::clear()
{
    if (qr_code) {
        QRcode_free(qr_code);
        qr_code = nullptr;
    }
    update();
}

bool QrcodeWidget::hasValidData() const
{
    return moduleCount() > 0;
}

int QrcodeWidget::moduleCount() const
{
    return qr_code ? qr_code->width : 0;
}

void QrcodeWidget::setForegroundColor(const QColor& color)
{
    foreground_color = color;
    update();
}

void QrcodeWidget::setBackgroundColor(const QColor& color)
{
    background_color = color;
    update();
}

QSize QrcodeWidget::sizeHint() const
{
    const int n = moduleCount();
    return n > 0 ? QSize(n * 4, n * 4) : QSize(100, 100);
}

QSize QrcodeWidget::minimumSizeHint() const
{
    const int n = moduleCount();
    return n > 0 ? QSize(n, n) : QSize(50, 50);
}

bool QrcodeWidget::saveImage(const QString& path, int size) const
{
    if (size < 1 || path.isEmpty() || !hasValidData())
        return false;
    QImage image(size, size, QImage::Format_RGB32);
    image.fill(background_color);
    QPainter painter(&image);
    draw(painter, size, size);
    painter.end();
    return image.save(path);
}

void QrcodeWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(Qt::NoPen);
    painter.fillRect(rect(), background_color);
    if (qr_code)
        draw(painter, width(), height());
}

void QrcodeWidget::draw(QPainter& painter, int width, int height) const
{
    const int n = moduleCount();
    if (n <= 0)
        return;
    const qreal sx = qreal(width) / n;
    const qreal sy = qreal(height) / n;
    painter.setPen(Qt::NoPen);
    painter.setBrush(foreground_color);
    const unsigned char* module = qr_code->data;
    for (int row = 0; row < n; ++row) {
        for (int col = 0; col < n; ++col, ++module) {
            if (*module & 1)
                painter.drawRect(QRectF(col * sx, row * sy, sx, sy));
        }
    }
}
