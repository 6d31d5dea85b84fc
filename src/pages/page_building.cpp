#include "pages/page_building.h"

#include "ui/svg_icon_label.h"
#include "ui/text_manager.h"

#include <QLabel>
#include <QProgressBar>
#include <QVariant>

QLabel* createPageLabel(QWidget* parent, const char* className, const QRect& rect,
                        const QString& text, Qt::Alignment align)
{
    auto* label = new QLabel(text, parent);
    label->setProperty("class", className);
    label->setGeometry(rect);
    label->setAlignment(align | Qt::AlignVCenter);
    return label;
}

QLabel* createPageIcon(QWidget* parent, const char* className, const QString& svgPath,
                       const QRect& rect)
{
    QLabel* icon = createSvgIconLabel(parent, svgPath, rect.size(), className);
    icon->setProperty("icon-state", "normal");
    icon->move(rect.topLeft());
    return icon;
}

QProgressBar* createPageBar(QWidget* parent, const char* className, const QRect& rect, int value)
{
    auto* bar = new QProgressBar(parent);
    bar->setProperty("class", className);
    bar->setRange(0, 100);
    bar->setTextVisible(false);
    bar->setGeometry(rect);
    bar->setValue(value);
    return bar;
}

QString pageText(const UITextManager* textManager, const QString& key, const QString& fallback)
{
    return textManager ? textManager->getTextWithFallback(key) : fallback;
}

void setKeyText(QLabel* label, const UITextManager* textManager, const QString& key)
{
    if (label && textManager)
        label->setText(textManager->getTextWithFallback(key));
}
