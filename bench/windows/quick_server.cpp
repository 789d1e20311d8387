#include "bench/windows/quick_server.h"

#include "platform/record_set.h"
#include "windows/class_factory.h"

namespace qor::bench {

namespace {

DWORD delay = 0;  // of a data call, milliseconds

class QuickServer final : public Object {
 public:
    explicit QuickServer(Ref<RecordSet> rows) : rows_(std::move(rows)) {}
    std::string_view ClassName() const override { return "Server"; }
    MemberId FindMember(std::string_view name) override {
        return name.starts_with("GetRpt") ? 1 : name == "AccessCheck" ? 2 : name == "SystemProfile" ? 3 : 0;
    }
    Value Invoke(MemberId member, InvokeKind, Arguments) override {
        switch (member) {
            case 1:
                if (delay) Sleep(delay);
                return rows_;
            case 2:
                return true;
            case 3:
                return Value(Ref<Object>(this));
            default:
                return {};
        }
    }

 private:
    Ref<RecordSet> rows_;
};

Ref<RecordSet> OneRow() {
    auto rows = MakeRef<ColumnarRecordSet>(std::vector<std::string>{"FName", "FAmount"});
    rows->AddRow({"A", 128.5});
    return rows;
}

constexpr const wchar_t* kServers[] = {L"QORMArApRpt.Data",
                                       L"QOREBCGLView.GLData",
                                       L"QOREBSBase.SystemProfile",
                                       L"QOREBSBase.SecurityInfo",
                                       L"QORMAppConnection.AppConnection",
                                       L"QORMtsCacheService.CacheFacade",
                                       L"QORPropsMgr.ShareProps",
                                       L"QORFrmRes.FrmResLoader"};

}  // namespace

Ref<Object> MakeQuickServer() {
    static const Ref<RecordSet> rows = OneRow();
    return MakeRef<QuickServer>(rows);
}

void SetServerDelay(unsigned milliseconds) { delay = milliseconds; }

Ref<Dictionary> QuickFilter() {
    auto filter = MakeRef<OrderedDictionary>();
    filter->Put("DtpBDate", "2026-01-01");
    filter->Put("DtpEDate", "2026-12-31");
    return filter;
}

void ServeQuickly() {
    for (const wchar_t* name : kServers) {
        CLSID id;
        windows::ComPtr<IClassFactory> factory;
        DWORD cookie = 0;
        if (FAILED(CLSIDFromProgID(name, &id))) continue;
        windows::AnswerFactory(&MakeQuickServer, IID_IClassFactory, reinterpret_cast<void**>(&factory));
        CoRegisterClassObject(id, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie);
    }
}

}  // namespace qor::bench
