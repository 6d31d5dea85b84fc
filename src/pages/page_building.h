#pragma once

#include <QRect>
#include <QString>

class QLabel;
class QProgressBar;
class QWidget;
class UITextManager;

// Small builders and text helpers that the pages share.

QLabel* createPageLabel(QWidget* parent, const char* className, const QRect& rect,
                        const QString& text = QString(), Qt::Alignment align = Qt::AlignLeft);
// A tintable 24 by 24 (or `size`) icon with `icon-state` "normal".
QLabel* createPageIcon(QWidget* parent, const char* className, const QString& svgPath,
                       const QRect& rect);
// A 0 to 100 bar without text.
QProgressBar* createPageBar(QWidget* parent, const char* className, const QRect& rect, int value);

// The text of `key`, or `fallback` when the page has no text manager.
QString pageText(const UITextManager* textManager, const QString& key, const QString& fallback);
// Sets `label` to the text of `key`; without a text manager the label keeps
// what it shows.
void setKeyText(QLabel* label, const UITextManager* textManager, const QString& key);
