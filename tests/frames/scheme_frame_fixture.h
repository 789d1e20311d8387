// A scheme dialog of two panels around the frame under test.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frames/scheme_dialog_frame.h"
#include "platform/conversions.h"
#include "support/test_platform.h"

namespace qor::test {

/// A dialog with three values on the whole panel, of which the short one shows the first.
class TwoPanels final : public SchemeFrameHost {
 public:
    std::string customer = "as made", department = "as made", common = "as made";
    std::int16_t zero = 0;
    std::int32_t itemClass = 0;
    SchemeFrame* frame = nullptr;
    Ref<Dictionary> result;
    std::vector<std::string> events;

    void OnSchemeDefaults() override {
        events.emplace_back("defaults");
        zero = 1;
    }
    void OnSchemeClosing(std::int16_t& cancel) override {
        events.push_back("closing " + std::to_string(cancel));
        if (cancel == 0) result = frame->CurrentScheme();
    }
    void OnSchemeToPanel(Dictionary& scheme) override {
        events.emplace_back("to panel");
        customer = ToText(scheme.GetOr("BCustNumber", ""));
        department = ToText(scheme.GetOr("BDeptNumber", ""));
        zero = ToInt16(scheme.GetOr("NotShowBalZero", std::int16_t{0}));
    }
    void OnPanelToScheme(Dictionary& scheme) override {
        scheme.Put("BCustNumber", customer);
        scheme.Put("BDeptNumber", department);
        scheme.Put("NotShowBalZero", zero);
    }
    void OnSchemeToCommon(Dictionary& scheme) override { common = ToText(scheme.GetOr("BCustNumber", "")); }
    void OnCommonToScheme(Dictionary& scheme) override { scheme.Put("BCustNumber", common); }
    void OnItemClassOf(Control& control, std::int32_t& wanted) override {
        events.push_back("class of " + control.name());
        if (itemClass != 0) wanted = itemClass;
    }
    void ShowPanel(bool whole) override { events.emplace_back(whole ? "whole" : "common"); }
    void CloseDialog() override { events.emplace_back("close"); }

    std::string OnPanel() const { return customer + " " + department + " " + std::to_string(zero); }
};

class SchemeFrameTest : public testing::Test {
 protected:
    struct Dialog {
        Dialog(Platform& platform, SchemeStore& store) : frame(platform, store, form) {
            form.frame = &frame;
            frame.SetFrameRptID(10502);
            frame.LinkFrameAutoFilter(autoFilter);
        }
        std::int32_t autoFilter = -1;
        TwoPanels form;
        SchemeDialogFrame frame;
    };

    static Ref<Dictionary> Filter() {
        const auto filter = MakeRef<OrderedDictionary>();
        filter->Put("NotShowBalZero", "1");
        filter->Put("BCustNumber", "01.001");
        filter->Put("DataRightWhere", " 1=1 ");
        return filter;
    }

    TestPlatform platform;
    MemorySchemeStore store;
    Dialog dialog{platform, store};
    TwoPanels& form = dialog.form;
};

}  // namespace qor::test
