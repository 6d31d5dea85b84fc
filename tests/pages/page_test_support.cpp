#include "page_test_support.h"

#include "ui/panel_resources.h"
#include "ui/text_manager.h"

#include <QDir>
#include <QFile>
#include <QPixmap>
#include <QVariant>

#include <map>
#include <memory>

namespace pagetest {

UITextManager* texts(int language)
{
    static std::map<int, std::unique_ptr<UITextManager>> managers;
    static const bool resourcesReady = (initPanelResources(), true);
    (void)resourcesReady;
    auto& manager = managers[language];
    if (!manager)
        manager = std::make_unique<UITextManager>(
            nullptr, language,
            QStringLiteral(PANEL_SOURCE_DIR "/resources/language/language-vantor-ui.json"),
            QString());
    return manager.get();
}

QString english(const QString& key) { return texts(kEnglish)->getText(key); }

bool showsFile(const QLabel* label, const QString& path)
{
    const QPixmap shown = label->pixmap(Qt::ReturnByValue);
    const QPixmap file(path);
    return !shown.isNull() && !file.isNull() && shown.toImage() == file.toImage();
}

QString svgPathOf(const QWidget* icon) { return icon->property("svgPath").toString(); }

void applyTheme(QWidget* widget, const QString& theme)
{
    QFile file(QStringLiteral(":/themes/%1.qss").arg(theme));
    if (file.open(QIODevice::ReadOnly))
        widget->setStyleSheet(QString::fromUtf8(file.readAll()));
}

QStringList saveThemedScreenshots(QWidget* widget, const QString& name)
{
    const QString folder = QStringLiteral(PANEL_BINARY_DIR "/screenshots/pages");
    QDir().mkpath(folder);
    QStringList written;
    const QString before = widget->styleSheet();
    for (const QString& theme : {QStringLiteral("black"), QStringLiteral("blue")}) {
        applyTheme(widget, theme);
        const QString path = QStringLiteral("%1/%2_%3.png").arg(folder, name, theme);
        if (widget->grab().save(path))
            written << path;
    }
    widget->setStyleSheet(before);
    return written;
}

} // namespace pagetest
