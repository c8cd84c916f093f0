#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <map>

#include "platform/forms/form.h"
#include "platform/machine/window_system.h"
#include "platform/run_time_error.h"

namespace orv {

/// Shows nothing and answers every notice with its first button.
class NoWindows : public WindowSystem {
public:
    void open(Form&) override {}
    void show(Form&) override {}
    void close(Form&) override {}
    void centre(Form&) override {}
    void runModal(Form&) override {}
    std::size_t showNotice(const Notice&) override { return 0; }
    std::optional<std::string> openFile(const FileQuestion&) override { return std::nullopt; }
    void commitComposition() override {}
    void showWork(const std::string&) override {}
    void pointToSibling(Form&, const std::string&, std::function<void()>) override {}
    void beep() override {}
    void showPointer(bool) override {}
    void repaint() override {}
};

/// Shows nothing. The test defines in advance the operator's action in each open dialog and modal form. An unexpected
/// dialog or question fails the test, and so does a modal form that remains open.
class ScriptedWindows : public NoWindows {
public:
    /// The operator's actions in a modal form. The form must be unloaded at the end.
    using Script = std::function<void(Form&)>;

    ~ScriptedWindows() override {
        EXPECT_TRUE(picks_.empty()) << picks_.size() << " unused files";
        for (const auto& [form, scripts] : scripts_) {
            EXPECT_TRUE(scripts.empty()) << form << " was not opened as often as foreseen";
        }
    }

    void onModal(const std::string& form, Script script) { scripts_[form].push_back(std::move(script)); }

    /// Sets the file chosen in the next open dialog; nothing cancels it.
    void pick(std::optional<std::string> file) { picks_.push_back(std::move(file)); }
    std::function<void()> onRepaint;

    std::vector<FileQuestion> questions;
    /// Every notice, including those with a single button.
    std::vector<Notice> notices;
    /// "open frm_CompInp0" and the like, in order.
    std::vector<std::string> calls;
    /// The line on the page about the work or the search in progress.
    std::string work;
    bool hourglass = false;
    int repaints = 0;
    /// "open" or "show": this operation fails.
    std::string broken;

    void open(Form& form) override { record("open", form); }
    void show(Form& form) override { record("show", form); }
    void close(Form& form) override { record("close", form); }
    void centre(Form& form) override { record("centre", form); }
    void runModal(Form& form) override {
        record("modal", form);
        auto& scripts = scripts_[form.name()];
        if (scripts.empty()) {
            ADD_FAILURE() << form.name() << " was opened unexpectedly";
            throw RunTimeError(Failure::Internal);
        }
        taken(scripts)(form);
        EXPECT_FALSE(form.loaded()) << form.name() << " is still open after its script";
    }
    std::size_t showNotice(const Notice& notice) override {
        notices.push_back(notice);
        EXPECT_EQ(notice.buttons.size(), 1U) << "unexpected question: " << notice.text;
        return notice.escapeButton;
    }
    void showPointer(bool busy) override { hourglass = busy; }
    void showWork(const std::string& what) override { work = what; }
    void pointToSibling(Form&, const std::string& line, std::function<void()>) override { work = line; }
    void repaint() override {
        ++repaints;
        if (onRepaint) onRepaint();
    }
    std::optional<std::string> openFile(const FileQuestion& question) override {
        questions.push_back(question);
        EXPECT_FALSE(picks_.empty()) << "unexpected open dialog";
        return picks_.empty() ? std::nullopt : taken(picks_);
    }

private:
    template <class Item>
    static Item taken(std::deque<Item>& queue) {
        const Item first = queue.front();
        queue.pop_front();
        return first;
    }
    void record(const std::string& what, const Form& form) {
        calls.push_back(what + " " + form.name());
        if (what == broken) throw RunTimeError(Failure::OutOfMemory);
    }

    std::deque<std::optional<std::string>> picks_;
    std::map<std::string, std::deque<Script>> scripts_;
};

}  // namespace orv
