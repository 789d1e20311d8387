// What the tests of the plain dialogs share: a person in a report's dialog, and a frame that notes what its
// form asks of it.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dialogs/plain_dialog.h"
#include "frames/plain_scheme_frame.h"
#include "support/person.h"

namespace qor::test {

/// The frame over schemes in memory, which also notes what its form asks of it.
class NotingFrame final : public PlainFrame {
 public:
    NotingFrame(std::unique_ptr<PlainFrame> inner, Log& notes) : inner_(std::move(inner)), notes_(notes) {}

    void InitScheme(std::int32_t& rptID, std::string_view title) override {
        notes_.push_back("InitScheme " + std::to_string(rptID) + " " + std::string(title));
        inner_->InitScheme(rptID, title);
    }
    void SetSchemeOption(std::int16_t index, bool value) override {
        notes_.push_back("SchemeOption " + std::to_string(index) + (value ? " True" : " False"));
        if (failsAtOptions) throw Error(-1, "Frame", "没有这个选项");
        inner_->SetSchemeOption(index, value);
    }
    Value GetSchemeItem(const std::string& scheme, std::string_view key) override {
        notes_.push_back("Get " + std::string(key));
        return inner_->GetSchemeItem(scheme, key);
    }
    void SetSchemeItem(std::string& scheme, std::string_view key, std::string_view value) override {
        notes_.push_back("Set " + std::string(key) + " " + std::string(value));
        inner_->SetSchemeItem(scheme, key, value);
    }
    Ref<Dictionary> CurrentConditions() override { return inner_->CurrentConditions(); }
    Ref<Object> SchemeHost() override {
        notes_.emplace_back("SchemeHost");
        return inner_->SchemeHost();
    }
    void RefreshSchemes() override {
        notes_.emplace_back("RefreshSchemes");
        inner_->RefreshSchemes();
    }
    void SaveScheme(std::string_view name) override { inner_->SaveScheme(name); }
    void LoadScheme(std::string_view name) override { inner_->LoadScheme(name); }
    void DeleteScheme(std::string_view name) override { inner_->DeleteScheme(name); }
    void ShowDefaults() override { inner_->ShowDefaults(); }
    std::vector<std::string> SchemeNames() const override { return inner_->SchemeNames(); }
    std::string CurrentSchemeName() const override { return inner_->CurrentSchemeName(); }
    void ShowScheme(const Dictionary& conditions) override { inner_->ShowScheme(conditions); }

    bool failsAtOptions = false;

 private:
    std::unique_ptr<PlainFrame> inner_;
    Log& notes_;
};

class PlainDialogTest : public testing::Test {
 protected:
    /// Runs the filter of a report and plays the person in its dialog.
    void Filter(std::string_view reportClass, std::function<void(Person&)> person) {
        report = host.Create(reportClass);
        bool opened = false;
        host.InDialog([&](Form& form) {
            opened = true;
            Person user(form);
            person(user);
        });
        report->Call("ShowFilter");
        EXPECT_TRUE(opened);
    }
    void Filter(std::function<void(Person&)> person) { Filter("Rpt10522", std::move(person)); }
    /// The same, and the run with what was confirmed.
    void Run(std::string_view reportClass, std::function<void(Person&)> person) {
        Filter(reportClass, std::move(person));
        report->Call("GetReportData");
    }
    static void ConfirmAtOnce(Person& user) { user.Click("cmdOK"); }
    /// The item classes that the picker and the name list of each code box go by, as "8 1121".
    Log ItemClasses(Person& user) {
        const auto behind = [this](std::string_view lead) {
            const Log lines = Lines(lead);
            const std::size_t begin = lines.at(0).find(lead) + lead.size();
            return lines[0].substr(begin, lines[0].find_first_of(", ", begin) - begin);
        };
        Log classes;
        for (std::size_t i = 0; user.form().Find(ArrayName("txtItem", i)); ++i) {
            host.platform.log().clear();
            user.Click(ArrayName("cmdItem", i));
            user.Focus(ArrayName("txtItem", i));
            classes.push_back(behind("ItemLookUp(&") + " " + behind("LookUpClassID = "));
        }
        return classes;
    }
    /// A fetch that adds the rights before its component is made; `call` is how the data call begins.
    void ExpectUsualFetch(std::string_view component, std::string_view call) {
        const std::string name(component);
        EXPECT_THAT(ServerLogOf([this] { report->Call("GetReportData"); }),
                    testing::ElementsAre(
                        "call QOREBCGLView.GLData.AccessCheck(int16(1006), int16(2), int16(4))",
                        "create QOREBSBase.SecurityInfo",
                        "call QOREBSBase.SecurityInfo.NeedAutorized(\"UserID=16;UserName=demo;\")",
                        "release QOREBSBase.SecurityInfo", "create " + name,
                        testing::StartsWith("call " + name + "." + std::string(call)), "release " + name));
    }
    /// What a step asks of the outside, apart from the session and the progress window's pumps.
    Log ServerLogOf(const std::function<void()>& step) {
        Log log = host.LogOf(step);
        std::erase(log, "pump");
        return log;
    }
    void NoteFrames(bool failsAtOptions = false) {
        host.platform.makePlainFrame = [this, failsAtOptions](PlainFrameHost& form) {
            auto frame = std::make_unique<NotingFrame>(
                std::make_unique<PlainSchemeFrame>(host.platform, host.schemes, form), notes);
            frame->failsAtOptions = failsAtOptions;
            return frame;
        };
    }
    /// The item that a picker answers from now on.
    void PickerAnswers(std::string_view number) {
        host.platform.Component("QOREBCGLView.GLView")
            .Answers("ItemLookUp", Readable({{"ReturnObject", Readable({{"Number", std::string(number)}})}}));
    }
    /// The lines of the log that speak of `part`.
    Log Lines(std::string_view part) {
        Log lines;
        std::ranges::copy_if(host.platform.log(), std::back_inserter(lines),
                             [part](const std::string& line) { return line.find(part) != line.npos; });
        return lines;
    }
    /// Every message box: text, title and style.
    Log Told() {
        Log all;
        for (const auto& box : host.platform.windows().boxes) {
            all.push_back(box.text + " / " + box.title + " / " + std::to_string(box.style));
        }
        return all;
    }
    static std::string ResultOf(Person& user) {
        return Shown(dynamic_cast<FilterDialog&>(user.form()).Result());
    }

    ReportHost host;
    Log notes;
    Ref<Object> report;
};

}  // namespace qor::test
