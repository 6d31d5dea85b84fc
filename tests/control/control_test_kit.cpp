#include "control_test_kit.h"

#include "ui/panel_resources.h"

#include <QLabel>
#include <QVariant>

namespace controltest {

UITextManager& englishTexts()
{
    initPanelResources();
    static UITextManager manager(
        nullptr, 1, QStringLiteral(PANEL_SOURCE_DIR "/resources/language/language-vantor-ui.json"),
        QString());
    return manager;
}

QString english(const QString& key)
{
    return englishTexts().getText(key);
}

OperationCard::OperationCard()
    : chrome((initPanelResources(), std::make_unique<QWidget>())),
      overlay(new OperationOverlayComponent(chrome.get())),
      feedback(
          overlay, [](const QString& key) { return englishTexts().getTextWithFallback(key); }, time)
{
    chrome->setFixedSize(640, 172);
    chrome->show();
}

QString OperationCard::text() const
{
    return overlay->textLabel()->text();
}

bool OperationCard::shows(const QString& key) const
{
    return feedback.isOperationOverlayActive() && text() == english(key);
}

} // namespace controltest
