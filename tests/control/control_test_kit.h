// Shared pieces of the control tests: the project's texts, a themed host for
// the operation card, screenshots under the build dir.
#pragma once

#include "ui/operation_overlay_component.h"
#include "ui/text_manager.h"

#include <QString>
#include <QStringList>
#include <QWidget>

#include <memory>

namespace controltest {

constexpr int kChinese = 0;
constexpr int kEnglish = 1;

// A text manager on the project's language file, one per language, kept for
// the whole run.
UITextManager* texts(int language = kEnglish);
OperationTranslate englishTranslate();
QString english(const QString& key);

// The window's chrome as far as the card needs it: a 640 x 172 container
// with the card as its child, styled with one of the two themes.
struct OverlayHost {
    explicit OverlayHost(const QString& theme = QStringLiteral("black"));
    void applyTheme(const QString& theme);

    std::unique_ptr<QWidget> chrome;
    OperationOverlayComponent* overlay = nullptr;
};

QStringList themeNames();
// Saves the host in both themes as <build>/screenshots/control/<name>_<theme>.png;
// returns the files written.
QStringList saveThemedScreenshots(OverlayHost& host, const QString& name);

} // namespace controltest
