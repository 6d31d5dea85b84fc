#include "page_test_support.h"

#include "support/test_support.h"
#include "ui/panel_resources.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QProcess>

#include <map>

namespace pagetest {

namespace {

const QString kLanguageFile =
    QStringLiteral(PANEL_SOURCE_DIR "/resources/language/language-vantor-ui.json");

} // namespace

std::unique_ptr<UITextManager> makeTextManager(int language)
{
    initPanelResources();
    return std::make_unique<UITextManager>(nullptr, language, kLanguageFile, QString());
}

UITextManager* texts(int language)
{
    static std::map<int, std::unique_ptr<UITextManager>> managers;
    auto& manager = managers[language];
    if (!manager)
        manager = makeTextManager(language);
    return manager.get();
}

QString english(const QString& key)
{
    return texts(kEnglish)->getText(key);
}

bool showsFile(const QLabel* label, const QString& path)
{
    const QPixmap shown = label->pixmap(Qt::ReturnByValue);
    const QPixmap file(path);
    return !shown.isNull() && !file.isNull() && shown.toImage() == file.toImage();
}

QString svgPathOf(const QWidget* icon)
{
    return icon->property("svgPath").toString();
}

void showAndSettle(QWidget* widget)
{
    widget->show();
    QApplication::processEvents();
}

void applyTheme(QWidget* widget, const QString& theme)
{
    initPanelResources();
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
        QApplication::processEvents();
        const QString path = QStringLiteral("%1/%2_%3.png").arg(folder, name, theme);
        if (widget->grab().save(path))
            written << path;
    }
    widget->setStyleSheet(before);
    return written;
}

QImage renderOnWhite(QWidget* widget)
{
    QImage image(widget->size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    widget->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

QString decodeQrImage(const QImage& image)
{
    // zbar wants a quiet zone around the code and a few pixels per module.
    const int margin = 40;
    QImage framed(image.width() * 4 + 2 * margin, image.height() * 4 + 2 * margin,
                  QImage::Format_RGB32);
    framed.fill(Qt::white);
    QPainter painter(&framed);
    painter.drawImage(
        margin, margin,
        image.scaled(image.size() * 4, Qt::IgnoreAspectRatio, Qt::FastTransformation));
    painter.end();

    testsupport::TempDir dir;
    const QString path = QString::fromStdString(dir.file("qr.png"));
    if (!framed.save(path))
        return QString();
    QProcess zbar;
    // Binary mode hands back the bytes as encoded; otherwise zbar guesses a
    // charset and reads short UTF-8 Chinese as Shift-JIS.
    zbar.start(QStringLiteral("zbarimg"),
               {QStringLiteral("--raw"), QStringLiteral("-Sbinary"), QStringLiteral("-q"), path});
    if (!zbar.waitForFinished(10000))
        return QString();
    QString text = QString::fromUtf8(zbar.readAllStandardOutput());
    if (text.endsWith(QLatin1Char('\n')))
        text.chop(1);
    return text;
}

} // namespace pagetest
