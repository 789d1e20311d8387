// Shows every dialog once and takes a picture of each:  dialog_pictures FOLDER [REPORT...]
#include <cstdio>
#include <filesystem>
#include <set>

#include "library.h"
#include "platform/frame_owner.h"
#include "progress/bar.h"
#include "support/report_host.h"
#include "windows/pictures/window_picture.h"

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
            test::ReportHost host;
            host.schemes.Save(entry.description.number, "本月", {});
            const Ref<Object> report = host.Create(name);
            host.InDialog([&](Form& form) { TakeDialog(form); });
            report->Call("ShowFilter");
        }
    }

    void TakeProgress() {
        if (!Wants("progress")) return;
        struct Working final : BarEvents {
            Photographer& owner;
            Bar& bar;
            Working(Photographer& o, Bar& b) : owner(o), bar(b) {}
            void Active() override {
                bar.SetMsg("正在从服务器读取数据，请稍候...");
                bar.SetBarValue(40);
                owner.Take("frmProgBar");
                bar.Unload();
            }
        };
        test::ReportHost host;
        const auto bar = MakeRef<Bar>(host.process);
        Working working(*this, *bar);
        bar->Connect(working);
        bar->Show();
        bar->Disconnect(working);
    }

 private:
    bool Wants(const std::string& name) const { return wanted_.empty() || wanted_.contains(name); }

    void TakeDialog(Form& form) {
        const std::string name(form.ClassName());
        if (auto* levels = dynamic_cast<CheckBox*>(form.Find("chkMultiLevel"))) levels->SetValue(1);
        Take(name);
        SchemeFrame* frame = dynamic_cast<FrameOwner&>(form).schemeFrame();
        if (!frame) return;
        frame->SwitchPanel(false);
        Take(name + "-common");
    }

    void Take(const std::string& name) {
        // What was drawn reaches the screen a moment later.
        constexpr DWORD kMoment = 100;
        for (const DWORD start = GetTickCount(); GetTickCount() - start < kMoment; Sleep(kMoment / 10)) {
            NativePlay::Settle();
        }
        TakePicture(GetActiveWindow(), folder_ / (name + ".png"));
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
        photographer.TakeProgress();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "dialog_pictures: %s\n", error.what());
        return 1;
    }
    return 0;
}
