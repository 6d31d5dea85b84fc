// Opening, answering and leaving the three shared modal pages. ModalFlows
// keeps the records and decides what a confirmation does; the window shows
// the pages and carries out what only it can do.
#include "shell/widget.h"

#include "control/modal_flows.h"
#include "pages/general_confirm_page_widget.h"
#include "pages/general_edit_page_widget.h"
#include "pages/general_slider_page_widget.h"
#include "ui/text_manager.h"

void Widget::enterEditMode(int editType, int returnPage, int actualIndex)
{
    if (general_edit_page)
        goto_page(modal_flows->enterEditMode(editType, returnPage, actualIndex));
}

void Widget::enterSliderMode(int sliderType, int returnPage, int value)
{
    if (general_slider_page)
        goto_page(modal_flows->enterSliderMode(sliderType, returnPage, value));
}

void Widget::enterConfirmDialog(int actionType, int returnPage, int returnIndex, int param)
{
    if (general_confirm_page)
        goto_page(modal_flows->enterConfirmDialog(actionType, returnPage, returnIndex, param));
}

int Widget::modalReturnPage() const
{
    return modal_flows->modalReturnPage();
}

void Widget::onEditModeConfirmed(int editType, int index)
{
    modal_flows->onEditModeConfirmed(editType, index);
}

void Widget::onSliderModeConfirmed(int sliderType, int value)
{
    modal_flows->onSliderModeConfirmed(sliderType, value);
}

void Widget::onConfirmDialogConfirmed(int actionType)
{
    modal_flows->onConfirmDialogConfirmed(actionType);
}

void Widget::clearModalState()
{
    modal_pageid = -1;
    modal_active = false;
}

void Widget::onEditModeCancelled(int /*returnPage*/)
{
    clearModalState();
    goto_page(modal_flows->modalReturnPage());
}

void Widget::onSliderModeCancelled(int returnPage)
{
    onEditModeCancelled(returnPage);
}

void Widget::onConfirmDialogCancelled(int returnPage)
{
    onEditModeCancelled(returnPage);
}

void Widget::connectModalFlowSignals()
{
    ModalFlows* flows = modal_flows.get();
    connect(flows, &ModalFlows::editValueAccepted, this, [this](int index) {
        if (general_edit_page)
            general_edit_page->setActualIndex(index);
    });
    connect(flows, &ModalFlows::languageSwitched, this, [this](int language) {
        if (text_mgr)
            text_mgr->switchLanguage(language);
    });
    connect(flows, &ModalFlows::themeSwitched, this, [this](int theme) {
        apply_stylesheet(theme == 1 ? QStringLiteral("blue") : QStringLiteral("black"));
        theme_index = theme;
    });
    connect(flows, &ModalFlows::lcdSleepChanged, this, &Widget::LCD_Sleep_time_refresh);
    connect(flows, &ModalFlows::modalStateClearRequested, this, &Widget::clearModalState);
    connect(flows, &ModalFlows::standbyEntered, this, &Widget::doStandbyEnter);

    EditPageProbe probe;
    probe.current_option = [this] {
        return general_edit_page ? general_edit_page->currentOption() : QString();
    };
    probe.current_storage_id = [this] {
        return general_edit_page ? general_edit_page->currentStorageId() : -1;
    };
    flows->setEditPageProbe(std::move(probe));
}
