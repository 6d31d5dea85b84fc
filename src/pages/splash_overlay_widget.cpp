#include "pages/splash_overlay_widget.h"

#include <QLabel>
#include <QPixmap>

SplashOverlayWidget::SplashOverlayWidget(QWidget* parent) : QWidget(parent)
{
    setGeometry(0, 0, 640, 172);
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QStringLiteral("background-color: #000000;"));

    auto* logo = new QLabel(this);
    logo->setGeometry(rect());
    logo->setAlignment(Qt::AlignCenter);
    logo->setStyleSheet(QStringLiteral("background: transparent;"));
    const QPixmap pixmap(QStringLiteral(":/icons/logo.png"));
    if (!pixmap.isNull())
        logo->setPixmap(pixmap.scaled(size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
}
