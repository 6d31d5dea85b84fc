#pragma once

#include <QWidget>

// The black power-on screen with the product logo, shown while the pages are
// built. A missing picture leaves it plain black.
class SplashOverlayWidget : public QWidget {
    Q_OBJECT

public:
    explicit SplashOverlayWidget(QWidget* parent = nullptr);
};
