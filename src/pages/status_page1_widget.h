#pragma once

#include "pages/status_page_base.h"

class QLabel;
class QProgressBar;
struct StatusPage1VM;

// Home page 1: temperature, CPU and memory load on the left; device name,
// address and link rates on the right.
class StatusPage1Widget : public StatusPageBase {
    Q_OBJECT

public:
    StatusPage1Widget(UITextManager* textManager, QWidget* parent);

    int onSwipeLeft(int workmode) override;
    int onSwipeRight(int workmode) override;
    int onAutoSwitch(int workmode) override;

public slots:
    void updateFromVm(const StatusPage1VM& vm);
    void onLanguageChanged();

private:
    void createComponents();
    void layoutComponents();
    void applySystemResources(const StatusPage1VM& vm);
    void applyNetworkInfo(const StatusPage1VM& vm);

    QLabel* temp_icon = nullptr;
    QLabel* temp_c_label = nullptr;
    QLabel* temp_f_label = nullptr;
    QLabel* cpu_icon = nullptr;
    QLabel* cpu_label = nullptr;
    QLabel* cpu_percent_label = nullptr;
    QProgressBar* cpu_bar = nullptr;
    QLabel* mem_icon = nullptr;
    QLabel* mem_label = nullptr;
    QLabel* mem_percent_label = nullptr;
    QProgressBar* mem_bar = nullptr;
    QLabel* center_divider = nullptr;
    QLabel* device_icon = nullptr;
    QLabel* device_name_label = nullptr;
    QLabel* device_divider = nullptr;
    QLabel* badge_label = nullptr;
    QLabel* ip_label = nullptr;
    QLabel* up_value_label = nullptr;
    QLabel* up_unit_label = nullptr;
    QLabel* up_arrow_label = nullptr;
    QLabel* down_value_label = nullptr;
    QLabel* down_unit_label = nullptr;
    QLabel* down_arrow_label = nullptr;
    QLabel* ssid_label = nullptr;
};
