// The component's interface description is that of the member tables.
#include "windows/types/idl_writer.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "library.h"
#include "windows/types/class_ids.h"

namespace qor::windows {
namespace {

std::string KeptDescription() {
    std::ostringstream text;
    text << std::ifstream(std::filesystem::path(QOR_SOURCE_DIR) / "windows" / "component.idl").rdbuf();
    return text.str();
}

TEST(ComponentDescription, IsCurrent) {
    EXPECT_EQ(KeptDescription(), WriteIdl()) << "write it anew: build/qor_idl > windows/component.idl";
}

TEST(ComponentDescription, HasEveryPublicClass) {
    const std::string idl = WriteIdl();
    for (const PublicClass& publicClass : PublicClasses()) {
        EXPECT_NE(idl.find("coclass " + publicClass.name + " {"), std::string::npos) << publicClass.name;
    }
    EXPECT_EQ(PublicClasses().size(), Reports().size() + 2);
}

TEST(ComponentDescription, NoIdentityStandsTwice) {
    const std::string idl = WriteIdl();
    const std::regex identity("uuid\\(([0-9A-F-]+)\\)");
    std::set<std::string> seen;
    for (std::sregex_iterator found(idl.begin(), idl.end(), identity), end; found != end; ++found) {
        EXPECT_TRUE(seen.insert((*found)[1]).second) << (*found)[1];
    }
    // The library, a class and its members each, two event interfaces, and automation's own two.
    EXPECT_EQ(seen.size(), 1 + 2 * PublicClasses().size() + 2 + 2);
}

TEST(ComponentDescription, APropertyKeepsOneIdForReadingAndWriting) {
    const std::string idl = WriteIdl();
    EXPECT_NE(
        idl.find("[id(11), propget] long RptID();\n        [id(11), propput] void RptID([in] long RptID);"),
        std::string::npos);
}

TEST(ComponentIds, AreWrittenAsTheSystemWritesThem) {
    EXPECT_EQ(IdText(MakeId(10522, IdKind::Class)), "3E6C291A-9B50-4C3E-8D17-5AC0B1D2E3F4");
}

}  // namespace
}  // namespace qor::windows
