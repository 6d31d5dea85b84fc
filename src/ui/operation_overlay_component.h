#pragma once
// The small card over the page that tells the user that an operation runs and
// then how it ended. The window owns one, as a child of its chrome container,
// and drives it only through the calls below; its `showOperation*` and
// `hideOperationOverlay` members forward here.
#include <QString>
#include <QWidget>

#include <functional>

class QLabel;
class QTimer;

enum OperationStateType : int {
    OPERATION_IDLE = 0,
    OPERATION_LOADING = 1,
    OPERATION_SUCCESS = 2,
    OPERATION_FAILED = 3,
    OPERATION_WARNING = 4,
};

// Text key to shown text; in the panel UITextManager::getTextWithFallback.
using OperationTranslate = std::function<QString(const QString&)>;

class OperationOverlayComponent : public QWidget {
    Q_OBJECT

public:
    // Where the overlay sits in its parent, and the card's own height.
    static constexpr int kX = 0;
    static constexpr int kY = 30;
    static constexpr int kWidth = 640;
    static constexpr int kHeight = 40;
    // How long a result stays when the caller doesn't say otherwise.
    static constexpr int kDefaultResultMs = 1500;

    static constexpr const char* kLoadingIcon = ":/icons/general/loading.svg";
    static constexpr const char* kSuccessIcon = ":/icons/general/succeed.svg";
    static constexpr const char* kFailedIcon = ":/icons/general/failed.svg";
    static constexpr const char* kWarningIcon = ":/icons/general/warning.svg";

    explicit OperationOverlayComponent(QWidget* parent = nullptr);

    OperationStateType state() const { return current_state; }
    // Visible and showing something.
    bool isActive() const;
    // The loading card stands.
    bool isInProgress() const { return current_state == OPERATION_LOADING; }

    // A non-positive `ms` leaves the card up until it is hidden.
    void startAutoHide(int ms);
    void stopAutoHide();
    bool isAutoHidePending() const;
    void hideOverlay();

    // Fits the card to `text` (elided when too long) and sets it.
    void updateLayoutForText(const QString& text);
    void setVisualState(OperationStateType state, const QString& iconPath,
                        const QString& stateName);

    void showLoading(const QString& text);
    void showResult(bool ok, const QString& text, int ms = kDefaultResultMs);
    void showWarning(const QString& text, int ms = kDefaultResultMs);
    // The text of `status` (translated when `translate` is given) as a success
    // card for a non-negative status, a failure card otherwise.
    void showResultCode(int status, const OperationTranslate& translate, int ms = kDefaultResultMs);

    // Text key of an operation's status value: non-negative values are
    // successes, some of them special; negative values are failures, most of
    // them named by the domain that reported them.
    static QString resultTextKey(int status);

    // Parts, for tests and screenshots.
    QWidget* cardWidget() const { return card; }
    QLabel* iconLabel() const { return icon; }
    QLabel* textLabel() const { return text; }

signals:
    void autoHideTimeout();

private:
    void showCard(OperationStateType state, const QString& iconPath, const QString& stateName,
                  const QString& message);

    QWidget* card = nullptr;
    QLabel* icon = nullptr;
    QLabel* text = nullptr;
    QTimer* auto_hide_timer = nullptr;
    OperationStateType current_state = OPERATION_IDLE;
};
