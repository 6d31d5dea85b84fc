// Opening and leaving the three shared modal pages. The records filled here
// are what doPageRefresh hands the modal page; what a confirmation does is
// up to the control code.
#include "shell/widget.h"

void Widget::enterEditMode(int editType, int returnPage, int actualIndex)
{
    if (!general_edit_page)
        return;
    modal_return_page = returnPage;
    modal_return_arg = 0;
    edit_vm = EditModePageVM{editType, returnPage, actualIndex, 0, currentWorkMode()};
    goto_page(PAGE_GENERAL_EDIT);
}

void Widget::enterSliderMode(int sliderType, int returnPage, int value)
{
    if (!general_slider_page)
        return;
    modal_return_page = returnPage;
    modal_return_arg = 0;
    slider_vm = SliderModePageVM{sliderType, returnPage, value};
    goto_page(PAGE_GENERAL_SLIDER);
}

void Widget::enterConfirmDialog(int actionType, int returnPage, int returnIndex, int param)
{
    if (!general_confirm_page)
        return;
    modal_return_page = returnPage;
    modal_return_arg = returnIndex;
    confirm_vm = ConfirmDialogPageVM{actionType, returnPage, returnIndex, param};
    goto_page(PAGE_GENERAL_CONFIRM);
}

void Widget::onEditModeCancelled(int /*returnPage*/)
{
    modal_pageid = -1;
    modal_active = false;
    goto_page(modal_return_page);
}

void Widget::onSliderModeCancelled(int returnPage)
{
    onEditModeCancelled(returnPage);
}

void Widget::onConfirmDialogCancelled(int returnPage)
{
    onEditModeCancelled(returnPage);
}
