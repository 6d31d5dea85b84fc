#include "control_test_kit.h"

#include "ui/panel_resources.h"

#include <QDir>
#include <QFile>
#include <QVariant>

#include <map>

namespace controltest {

UITextManager* texts(int language)
{
    static std::map<int, std::unique_ptr<UITextManager>> managers;
    initPanelResources();
    auto& manager = managers[language];
    if (!manager)
        manager = std::make_unique<UITextManager>(
            nullptr, language,
            QStringLiteral(PANEL_SOURCE_DIR "/resources/language/language-vantor-ui.json"),
            QString());
    return manager.get();
}

OperationTranslate englishTranslate()
{
    UITextManager* manager = texts(kEnglish);
    return [manager](const QString& key) { return manager->getTextWithFallback(key); };
}

QString english(const QString& key)
{
    return texts(kEnglish)->getText(key);
}

QStringList themeNames()
{
    return {QStringLiteral("black"), QStringLiteral("blue")};
}

OverlayHost::OverlayHost(const QString& theme) : chrome(std::make_unique<QWidget>())
{
    initPanelResources();
    chrome->setFixedSize(640, 172);
    chrome->setProperty("class", "widget1");
    overlay = new OperationOverlayComponent(chrome.get());
    applyTheme(theme);
    chrome->show();
}

void OverlayHost::applyTheme(const QString& theme)
{
    QFile file(QStringLiteral(":/themes/%1.qss").arg(theme));
    if (file.open(QIODevice::ReadOnly))
        chrome->setStyleSheet(QString::fromUtf8(file.readAll()));
}

QStringList saveThemedScreenshots(OverlayHost& host, const QString& name)
{
    const QString folder = QStringLiteral(PANEL_BINARY_DIR "/screenshots/control");
    QDir().mkpath(folder);
    QStringList written;
    for (const QString& theme : themeNames()) {
        host.applyTheme(theme);
        const QString path = QStringLiteral("%1/%2_%3.png").arg(folder, name, theme);
        if (host.chrome->grab().save(path))
            written << path;
    }
    return written;
}

} // namespace controltest
