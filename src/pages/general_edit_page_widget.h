#pragma once

#include "model/view_models/shell_view_models.h"
#include "pages/i_gesture_handler.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

class QLabel;
class QPushButton;
class UITextManager;

// The one page on which every setting with a fixed list of values is chosen:
// the option in the middle, arrows either side, a tap on the option confirms.
// The options form a ring; the value in force carries the "actual" look.
class GeneralEditPageWidget : public QWidget, public IGestureHandler {
    Q_OBJECT

public:
    enum EditType {
        EDIT_LANGUAGE = 0,
        EDIT_THEME = 1,
        EDIT_WORK_MODE = 2,
        EDIT_FAN_MODE = 3,
        EDIT_USB_MODE = 4,
        EDIT_PTZ_PROTOCOL = 5,
        EDIT_TALLY_MODE = 6,
        EDIT_TALLY_LIGHT = 7,
        EDIT_VO_FORMAT = 8,
        EDIT_AUDIO_SOURCE = 9,
        EDIT_NDI_QUALITY = 10,
        EDIT_RECORD_DISK = 11,
    };

    GeneralEditPageWidget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeLeft(int workmode) override;
    int onSwipeRight(int workmode) override;
    int onEdgeSwipeToCenter(int workmode) override;
    int onSwipeDown(int workmode) override;
    void setDirty(bool isDirty) override { dirty = isDirty; }

    void enterEditMode(int editType, int returnPage, int actualIndex);
    void setActualIndex(int index);
    void setVoFormatContext(int width, int height, int fps, const QString& format, int workMode);
    void setPtzProtoContext(int usb2serial, int workMode);
    void setupEditOptions(int editType);

    int currentIndex() const { return current_index; }
    int actualIndex() const { return actual_index; }
    QString currentOption() const;
    int editType() const { return edit_type; }
    int returnPage() const { return return_page; }
    // Storage id of the selected record disk, -1 outside the disk choice.
    int currentStorageId() const;
    QStringList optionTexts() const { return options; }
    QString titleText() const { return title; }

signals:
    void confirmed(int editType, int index);
    void cancelled(int returnPage);

public slots:
    void updateFromVm(const EditModePageVM& vm);
    void prevOption();
    void nextOption();
    void updateDisplay();
    void updatePageDisplay();
    void updateNavDots();
    void layoutNavDots();
    void onLanguageChanged();

private:
    // An option is either a text key or a literal shown as it stands.
    struct OptionSource {
        QString text;
        bool is_key;
    };

    void createComponents();
    void layoutComponents();
    void initVoFormatOptions();
    void translateOptions();
    QString translate(const QString& key, const QString& fallback) const;
    bool isValidIndex(int index) const { return index >= 0 && index < options.size(); }

    UITextManager* text_mgr;
    bool dirty = true;
    int edit_type = -1;
    int return_page = -1;
    QString title;
    QString title_key_for_type;
    QString title_fallback;
    QList<OptionSource> option_sources;
    QStringList options;
    int current_index = 0;
    int actual_index = -1;

    int in_width = 0;
    int in_height = 0;
    int in_fps = 0;
    QString current_format;
    int ptz_usb2serial = 0;
    int work_mode = 0;

    QWidget* header = nullptr;
    QPushButton* cancel_btn = nullptr;
    QLabel* cancel_icon = nullptr;
    QLabel* cancel_label = nullptr;
    QLabel* title_label = nullptr;
    QWidget* body = nullptr;
    QPushButton* left_arrow = nullptr;
    QPushButton* right_arrow = nullptr;
    QPushButton* confirm_btn = nullptr;
    QLabel* option_label = nullptr;
    QWidget* nav_dots = nullptr;
    QList<QLabel*> dots;
};
