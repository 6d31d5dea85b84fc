#include "page_test_support.h"

#include "support/test_support.h"
#include "ui/panel_resources.h"

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QProcess>

#include <gtest/gtest.h>

#include <map>

namespace pagetest {

std::unique_ptr<UITextManager> makeTextManager(int language)
{
    initPanelResources();
    return std::make_unique<UITextManager>(
        nullptr, language,
        QStringLiteral(PANEL_SOURCE_DIR "/resources/language/language-vantor-ui.json"), QString());
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
    return texts(kEnglish)->getTextWithFallback(key);
}

bool showsFile(const QLabel* label, const QString& path)
{
    const QPixmap shown = label->pixmap(Qt::ReturnByValue);
    const QPixmap file(path);
    return !shown.isNull() && !file.isNull() && shown.toImage() == file.toImage();
}

void expectShown(const QWidget* page, const QVector<Shown>& facts)
{
    for (const Shown& fact : facts) {
        const QLabel* label = byClass(page, fact.cls, true).value(fact.index);
        const QString where = QStringLiteral("%1[%2]").arg(fact.cls).arg(fact.index);
        if (!fact.text.isNull()) {
            EXPECT_EQ(label ? label->text() : kHidden, fact.text) << where;
        }
        if (fact.state) {
            EXPECT_EQ(label ? stateOf(label) : kHidden, fact.state) << where;
        }
    }
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
    QImage framed(image.size() * 4 + QSize(2 * margin, 2 * margin), QImage::Format_RGB32);
    framed.fill(Qt::white);
    QPainter painter(&framed);
    painter.drawImage(margin, margin, image.scaled(image.size() * 4));
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
