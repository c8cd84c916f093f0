#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <string>
#include <vector>

#include "adapters/qt/qt_window_system.h"
#include "adapters/text/cp932.h"
#include "platform/controls/captions.h"
#include "platform/controls/check_box.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/image_control.h"
#include "platform/controls/number_input.h"
#include "platform/controls/text_input.h"
#include "platform/services.h"
#include "support/widgets.h"

namespace orv {

inline void compose(QWidget& widget, const QString& preedit, const QString& commit = {}) {
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit);
    QApplication::sendEvent(&widget, &event);
}

/// A form with a control of each kind. The destructor removes it from the screen.
struct SamplePage : Form {
    explicit SamplePage(std::string_view form = "page") : Form(form, "見本", {400, 300}) {}
    ~SamplePage() override {
        onQueryUnload = nullptr;
        services().forms->unload(*this, UnloadMode::Code);
    }

    TextInput code{*this, "txt_Code", {.caption = "番号：", .mask = "9", .limit = characters(4), .ime = Ime::Disabled}};
    TextInput name{*this, "txt_Name", {.caption = "会社名：", .refuse = "K", .limit = bytes(10), .ime = Ime::On}};
    TextInput kana{
        *this, "txt_Kana", {.caption = "カナ：", .mask = "Ｋ", .limit = bytes(10), .ime = Ime::FullKatakana}};
    TextInput open{*this, "txt_Open", {}};
    TextInput secret{*this, "txt_Secret", {.caption = "パスワード：", .ime = Ime::Disabled, .password = true}};
    NumberInput year{*this, "txt_Year", {.caption = "年：", .least = 1, .most = 9999}};
    NumberInput distance{
        *this, "txt_Distance", {.least = 0, .most = 99.9, .decimals = 1, .format = "#0.#;;;0", .display = "##.#;;"}};
    ComboBox list{*this, "cbo_List", {.caption = "一覧："}};
    CheckBox tick{*this, "chk_Tick", {.caption = "上記と同じ", .back = Colour{0xffdddd}}};
    Label panel{*this, "lbl_Panel", {.caption = "12", .look = LabelLook::Panel, .spokenName = "件数"}};
    Button save{
        *this, "btm_Save", {.caption = "保存", .look = ButtonLook::Action, .accessKey = U'S', .shortcut = "Ctrl+S"}};
    ImageControl photo{*this, "pic_Photo", {.width = 40, .height = 20}};
};

class SilentWindows : public QtWindowSystem {
public:
    using QtWindowSystem::QtWindowSystem;
    void beep() override { ++beeps; }

    int beeps = 0;
};

class QtTest : public testing::Test {
protected:
    QtTest() {
        services() = {};
        services().codePage = &codePage_;
        services().windows = &windows;
        services().forms = &forms;
    }
    ~QtTest() override {
        qputenv("ORV_SCALE", "1");
        settle();
        services() = {};
    }

    /// Places the controls below each other, 20 design pixels high.
    void place(const Form& form) {
        places_.clear();
        for (const Control* control : form.controls()) {
            const int row = static_cast<int>(places_.size());
            places_.push_back({control->name(), control->index(), {100, 22 * row, 120, 20}, 90});
        }
    }

    void show(Form& form) {
        place(form);
        forms.show(form);
        ASSERT_TRUE(QTest::qWaitForWindowActive(findWindow(form), kPatience));
    }

    QLineEdit* findLine(const Control& control) const { return findWidget<QLineEdit>(control); }

    /// Moves the focus to the control as the operator does.
    QLineEdit* enter(const Control& control) const {
        QTest::mouseClick(findWidget(control), Qt::LeftButton);
        EXPECT_TRUE(findWidget(control)->hasFocus());
        return findLine(control);
    }

    /// Presses the button's access key anywhere on the form. The click is raised when the button is released.
    static void pressAccessKey(QWidget* anywhere) {
        const auto* button = anywhere->window()->findChild<QAbstractButton*>("btm_Save");
        QTest::keyClick(anywhere, Qt::Key_S, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !button->isDown(); }, kPatience));
    }

    /// Handles all queued events, including deletions.
    static void settle() {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

private:
    Cp932 codePage_;
    std::vector<Placement> places_;

protected:
    FormHost forms;
    SilentWindows windows{[this](std::string_view) { return std::span<const Placement>(places_); }, forms};
};

}  // namespace orv
