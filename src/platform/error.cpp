#include "platform/error.h"

namespace qor {

std::string_view Describe(Automation error) {
    switch (error) {
        case Automation::InvalidCall:
            return "无效的过程调用或参数";
        case Automation::Overflow:
            return "溢出";
        case Automation::SubscriptOutOfRange:
            return "下标越界";
        case Automation::TypeMismatch:
            return "类型不匹配";
        case Automation::ObjectNotSet:
            return "对象变量或 With 块变量未设置";
        case Automation::InvalidUseOfNull:
            return "无效使用 Null";
        case Automation::InvalidPropertyValue:
            return "无效属性值";
        case Automation::AlreadyShown:
            return "窗体已经显示，不能再以模式窗体显示";
        case Automation::ObjectRequired:
            return "要求对象";
        case Automation::CannotCreate:
            return "ActiveX 部件不能创建对象";
        case Automation::NoSuchMember:
            return "对象不支持该属性或方法";
        case Automation::ArgumentNotOptional:
            return "参数不可选";
        case Automation::WrongArguments:
            return "错误的参数号或无效的属性赋值";
        case Automation::KeyAlreadyThere:
            return "此键已经与该集合中的某元素相关联";
        case Automation::NoCurrentRecord:
            return "BOF 或 EOF 中有一个是“真”，或者当前的记录已被删除，所需的操作要求一个当前的记录。";
        case Automation::NoSuchField:
            return "在对应所需名称或序数的集合中，未找到项目。";
    }
    return "";
}

void Raise(Automation error) {
    throw Error(static_cast<std::int32_t>(error), std::string(kLibraryName), std::string(Describe(error)));
}

}  // namespace qor
