#include "dialogs/layout.h"

#include <gtest/gtest.h>

#include <set>

#include "library.h"
#include "platform/record_set.h"
#include "support/person.h"

namespace qor {
namespace {

using test::Person;
using test::ReportHost;

/// The width of a text of 9 points: Chinese characters are square, the others half as wide.
std::int32_t WidthOf(std::string_view text) {
    constexpr std::int32_t kSquare = 180;
    std::int32_t width = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '&' || (byte & 0xC0) == 0x80) continue;
        width += byte < 0x80 ? kSquare / 2 : kSquare;
    }
    return width;
}

/// What a control needs beside its caption.
std::int32_t WidthAroundCaption(const Control& control) {
    constexpr std::int32_t kTickAndGap = 285, kBorders = 120;
    switch (control.kind()) {
        case Control::Kind::Check:
        case Control::Kind::Option:
            return kTickAndGap;
        case Control::Kind::Button:
            return kBorders;
        default:
            return 0;
    }
}

struct Area {
    std::int32_t left, top, right, bottom;
};

Area PlaceInForm(const Control& control) {
    Bounds place = control.bounds();
    for (const Control* around = control.container(); around; around = around->container()) {
        place.left += around->bounds().left;
        place.top += around->bounds().top;
    }
    return {place.left, place.top, place.left + place.width, place.top + place.height};
}

bool Overlap(const Area& a, const Area& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

/// Calls `look` for every dialog as each application type has it, a scheme dialog's two panels one by one.
void ForEachDialog(const std::function<void(Form&, const std::string& where)>& look) {
    for (const ReportEntry& entry : Reports()) {
        for (const std::int32_t appType : {1, 2, 4}) {
            ReportHost host;
            host.platform.Bag().Put("AppType", appType);
            host.platform.Component("QORMArApRpt.Data").Answers("GetData", [](Arguments) -> Value {
                const auto matches = MakeRef<ColumnarRecordSet>(std::vector<std::string>{"FItemID"});
                matches->AddCell(0, 1);
                return matches;
            });
            host.InDialog([&](Form& form) {
                const std::string where =
                    std::string(form.ClassName()) + ", application type " + std::to_string(appType);
                if (auto* levels = dynamic_cast<CheckBox*>(form.Find("chkMultiLevel"))) levels->SetValue(1);
                look(form, where);
                SchemeFrame* frame = dynamic_cast<FrameOwner&>(form).schemeFrame();
                if (!frame) return;
                frame->SwitchPanel(false);
                look(form, where + ", short panel");
            });
            host.Create("Rpt" + std::to_string(entry.description.number))->Call("ShowFilter");
        }
    }
}

std::vector<Control*> ShownIn(Form& form) {
    std::vector<Control*> shown;
    for (Control* control : form.controls()) {
        if (control->IsShown() && control->bounds().width > 0) shown.push_back(control);
    }
    return shown;
}

TEST(DialogLayout, NoCaptionIsCutOff) {
    std::set<std::string> dialogs;
    ForEachDialog([&](Form& form, const std::string& where) {
        dialogs.emplace(form.ClassName());
        for (const Control* control : ShownIn(form)) {
            const auto* captioned = dynamic_cast<const CaptionedControl*>(control);
            if (!captioned) continue;
            EXPECT_LE(WidthOf(captioned->caption()) + WidthAroundCaption(*control), control->bounds().width)
                << where << ": " << control->name() << " " << captioned->caption();
        }
    });
    EXPECT_EQ(dialogs.size(), 18u) << "every report but the two credit warnings has a dialog";
}

TEST(DialogLayout, NothingOverlapsAndEverythingStandsInsideWhatHoldsIt) {
    ForEachDialog([](Form& form, const std::string& where) {
        const std::vector<Control*> shown = ShownIn(form);
        for (const Control* a : shown) {
            const Area place = PlaceInForm(*a);
            const Area around = a->container() ? PlaceInForm(*a->container())
                                               : Area{0, 0, form.size().width, form.size().height};
            EXPECT_GE(place.left, around.left) << where << ": " << a->name();
            EXPECT_GE(place.top, around.top) << where << ": " << a->name();
            EXPECT_LE(place.right, around.right) << where << ": " << a->name();
            EXPECT_LE(place.bottom, around.bottom) << where << ": " << a->name();
            for (const Control* b : shown) {
                if (a == b || a->container() != b->container()) continue;
                EXPECT_FALSE(Overlap(place, PlaceInForm(*b)))
                    << where << ": " << a->name() << " and " << b->name();
            }
        }
    });
}

TEST(DialogLayout, BoxesAndTheirLabelsBeginInTheSameColumns) {
    const std::int32_t inset = layout::kMargin;
    const std::set<std::int32_t> columns{inset + layout::kLabel,     inset + layout::kBox,
                                         inset + layout::kWideLabel, inset + layout::kHighLabel,
                                         inset + layout::kHighBox,   inset + layout::kButton,
                                         inset + layout::kHighButton};
    ForEachDialog([&](Form& form, const std::string& where) {
        for (const Control* control : ShownIn(form)) {
            const bool aligned = control->kind() == Control::Kind::Text ||
                                 control->kind() == Control::Kind::List ||
                                 control->kind() == Control::Kind::Date;
            if (!aligned) continue;
            EXPECT_TRUE(columns.contains(PlaceInForm(*control).left)) << where << ": " << control->name();
            EXPECT_EQ(control->bounds().height, layout::kBoxHeight) << where << ": " << control->name();
        }
    });
}

}  // namespace
}  // namespace qor
