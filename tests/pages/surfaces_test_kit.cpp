#include "surfaces_test_kit.h"

#include "support/test_support.h"
#include "ui/panel_resources.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <QProcess>

namespace pagetest {

std::unique_ptr<UITextManager> makeTextManager(int language)
{
    return std::make_unique<UITextManager>(
        nullptr, language,
        QStringLiteral(PANEL_SOURCE_DIR "/resources/language/language-vantor-ui.json"), QString());
}

void showAndSettle(QWidget* widget)
{
    widget->show();
    QApplication::processEvents();
}

void saveThemedSnapshots(QWidget* widget, const QString& name)
{
    initPanelResources();
    const QString folder = QStringLiteral(PANEL_BINARY_DIR "/screenshots/pages");
    QDir().mkpath(folder);
    const QString previous = widget->styleSheet();
    for (const char* theme : {"black", "blue"}) {
        QFile sheet(QStringLiteral(":/themes/%1.qss").arg(QLatin1String(theme)));
        if (!sheet.open(QIODevice::ReadOnly))
            continue;
        widget->setStyleSheet(QString::fromUtf8(sheet.readAll()));
        QApplication::processEvents();
        widget->grab().save(QStringLiteral("%1/%2_%3.png").arg(folder, name, QLatin1String(theme)));
    }
    widget->setStyleSheet(previous);
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
