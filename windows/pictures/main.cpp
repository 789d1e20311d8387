// Shows every dialog once and takes a picture of each:  dialog_pictures FOLDER [REPORT...]
#include <cstdio>
#include <filesystem>
#include <functional>
#include <set>
#include <string>

#include "library.h"
#include "platform/frame_owner.h"
#include "platform/record_set.h"
#include "progress/bar.h"
#include "support/report_host.h"
#include "windows/native/screen.h"
#include "windows/pictures/window_picture.h"
#include "windows/window_names.h"

namespace qor::windows {

namespace {

class Photographer {
 public:
    Photographer(std::filesystem::path folder, std::set<std::string> wanted)
        : folder_(std::move(folder)), wanted_(std::move(wanted)) {}

    void TakeDialogs() {
        for (const ReportEntry& entry : Reports()) {
            const std::string name = "Rpt" + std::to_string(entry.description.number);
            if (!Wants(name)) continue;
            ShowFilter(name, {}, [this](test::ReportHost&, Form& form) { TakeDialog(form); });
        }
    }

    /// What a dialog asks and tells beside itself.
    void TakeQuestions() {
        if (!Wants("questions")) return;
        ShowFilter("Rpt10522", {}, [this](test::ReportHost& host, Form& form) {
            host.platform.windows().user = [this](Form&) { Take("schemeName"); };
            Screen(form).Press("另存(&A)");
        });
        const SavedScheme reversed{{"DtpBDate", "2020-09-20"}, {"DtpEDate", "2020-09-10"}};
        ShowFilter("Rpt10522", reversed, [this](test::ReportHost& host, Form& form) {
            host.platform.windows().onBox = [this](HWND) { Take("message"); };
            Screen(form).Press("确定(&O)");
        });
    }

    void TakeProgress() {
        if (!Wants("progress")) return;
        test::ReportHost host;
        const auto bar = MakeRef<Bar>(host.process);
        Working working(*this, *bar);
        bar->Connect(working);
        bar->Show();
        bar->Disconnect(working);
    }

 private:
    struct Working final : BarEvents {
        Photographer& owner;
        Bar& bar;
        Working(Photographer& taker, Bar& shown) : owner(taker), bar(shown) {}
        void Active() override {
            bar.SetMsg("正在从服务器读取数据，请稍候...");
            bar.SetBarValue(40);
            HWND shown = nullptr;  // by a thread of its own
            while (!(shown = FindShownWindow("frmProgBar"))) {
                Sleep(10);
            }
            owner.Take("frmProgBar", shown);
            bar.Unload();
        }
    };

    bool Wants(const std::string& name) const { return wanted_.empty() || wanted_.contains(name); }

    static void ShowFilter(const std::string& report, const SavedScheme& scheme,
                           const std::function<void(test::ReportHost&, Form&)>& person) {
        test::ReportHost host;
        for (const ReportEntry& entry : Reports()) {
            host.schemes.Save(entry.description.number, "本月", scheme);
        }
        // One dialog opens only where customers and suppliers are matched.
        host.platform.Component("QORMArApRpt.Data").Answers("GetData", [](Arguments) -> Value {
            const auto matches = MakeRef<ColumnarRecordSet>(std::vector<std::string>{"FID"});
            matches->AddCell(0, 1);
            return matches;
        });
        host.InDialog([&](Form& form) { person(host, form); });
        host.Create(report)->Call("ShowFilter");
    }

    void TakeDialog(Form& form) {
        const std::string name(form.ClassName());
        if (auto* levels = dynamic_cast<CheckBox*>(form.Find("chkMultiLevel"))) levels->SetValue(1);
        Take(name);
        SchemeFrame* frame = dynamic_cast<FrameOwner&>(form).schemeFrame();
        if (!frame) return;
        frame->SwitchPanel(false);
        Take(name + "-common");
    }

    /// A window, by default the one that is in front.
    void Take(const std::string& name, HWND window = nullptr) {
        // What was drawn reaches the screen a moment later.
        constexpr DWORD kMoment = 100;
        for (const DWORD start = GetTickCount(); GetTickCount() - start < kMoment; Sleep(kMoment / 10)) {
            NativePlay::Settle();
        }
        TakePicture(window ? window : GetActiveWindow(), folder_ / (name + ".png"));
    }

    std::filesystem::path folder_;
    std::set<std::string> wanted_;
};

}  // namespace

}  // namespace qor::windows

int wmain(int count, wchar_t** words) {
    if (count < 2) {
        std::fprintf(stderr, "usage: dialog_pictures FOLDER [NAME...]\n");
        return 2;
    }
    std::set<std::string> wanted;
    for (int i = 2; i < count; ++i) {
        wanted.insert(qor::windows::Narrow(words[i]));
    }
    try {
        qor::windows::Photographer photographer(words[1], std::move(wanted));
        photographer.TakeDialogs();
        photographer.TakeQuestions();
        photographer.TakeProgress();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "dialog_pictures: %s\n", error.what());
        return 1;
    }
    return 0;
}
