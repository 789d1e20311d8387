// A host whose server components are those of a middle tier on the sample firm: what a report asks, the
// embedded account set answers.
#pragma once

#include "embedded/sample_fixture.h"
#include "platform/conversions.h"
#include "support/report_host.h"

namespace qor::test {

struct ServedHost : ReportHost {
    explicit ServedHost(std::int32_t user = 1, std::uint64_t seed = 1) : tier(SampleFile(seed), user) {
        for (const char* name :
             {"QORPropsMgr.ShareProps", "QORMtsCacheService.CacheFacade", "QOREBSBase.SystemProfile",
              "QOREBSBase.SecurityInfo", "QORMAppConnection.AppConnection", "QOREBCGLView.GLData",
              "QOREBCGLView.GLView", "QOREBCBASE.UserProfile", "ZEP_APFC.FrameData",
              "QORGLNameListLib2.GLNameList", "QORMArApRpt.Data", "QORMArApRpt.Data10525",
              "QORMArApRpt.Data10526", "QORMArApRpt.Data10530"}) {
            platform.Remove(name);
        }
        platform.makeClass = [this, library = platform.makeClass](std::string_view name) {
            Ref<Object> component = tier.Create(name);
            return component ? component : library(name);
        };
        platform.now = *DateFromCalendar(2025, 6, 30);
    }

    MiddleTier tier;
};

}  // namespace qor::test
