#include "embedded/sample_names.h"

namespace qor {

namespace {

using Names = std::string_view[];

constexpr Names kEast = {"上海", "杭州", "南京", "苏州", "宁波", "无锡", "合肥"};
constexpr Names kSouth = {"广州", "深圳", "东莞", "佛山", "珠海", "中山"};
constexpr Names kNorth = {"北京", "天津", "石家庄", "太原", "济南", "青岛"};
constexpr Names kCentral = {"武汉", "长沙", "郑州", "南昌", "洛阳"};
constexpr Names kSouthWest = {"成都", "重庆", "昆明", "贵阳"};
constexpr Names kNorthEast = {"沈阳", "大连", "长春", "哈尔滨"};
constexpr Names kNorthWest = {"西安", "兰州", "银川", "乌鲁木齐"};

constexpr SampleRegion kRegions[] = {
    {"01", "华东区", kEast, true},       {"02", "华南区", kSouth, true},
    {"03", "华北区", kNorth, true},      {"04", "华中区", kCentral, false},
    {"05", "西南区", kSouthWest, false}, {"06", "东北区", kNorthEast, false},
    {"07", "西北区", kNorthWest, false},
};

constexpr SampleClass kSupplierGroups[] = {
    {"01", "原材料供应商"}, {"02", "商品供应商"}, {"03", "物流服务商"},
    {"04", "办公及服务"},   {"05", "公用事业"},
};

constexpr SampleClass kDepartments[] = {
    {"01", "总经办", 1},      {"02", "销售中心"},        {"02.01", "销售一部", 1}, {"02.02", "销售二部", 1},
    {"02.03", "大客户部", 1}, {"03", "采购部", 1},       {"04", "仓储部", 1},      {"05", "财务部", 1},
    {"06", "行政人事部", 1},  {"07", "外贸部", 1, true},
};

constexpr SampleClass kIncomeClasses[] = {
    {"01", "服务收入"},
    {"01.001", "安装服务收入", 1200},
    {"01.002", "维修服务收入", 480},
    {"01.003", "培训服务收入", 2600},
    {"01.004", "咨询服务收入"},
    {"01.004.01", "技术咨询收入", 5200},
    {"01.004.02", "管理咨询收入", 8400},
    {"01.005", "上门调试收入", 300, true},
    {"02", "租赁收入"},
    {"02.001", "房屋租赁收入", 9800},
    {"02.002", "设备租赁收入", 3100},
    {"03", "资产收入"},
    {"03.001", "利息收入", 150},
    {"03.002", "投资收益", 6400},
    {"03.003", "处置资产收入", 4300},
    {"04", "其他收入"},
    {"04.001", "废品变卖收入", 220},
    {"04.002", "政府补助", 12000},
    {"04.003", "违约金收入", 900},
    {"04.004", "保险赔款", 3600},
    {"05", "代理收入", 0, true},
    {"05.001", "代理手续费", 760, true},
    {"05.002", "代销佣金", 1500, true},
    {"06", "仓储收入", 1900},
};

constexpr SampleClass kExpenseClasses[] = {
    {"01", "人工费用"},
    {"01.001", "工资", 7800},
    {"01.002", "奖金", 3200},
    {"01.003", "社会保险费", 2400},
    {"01.004", "职工福利费", 600},
    {"01.005", "劳务派遣费", 4100, true},
    {"02", "办公费用"},
    {"02.001", "办公用品费", 260},
    {"02.002", "通讯费", 180},
    {"02.002.01", "固定电话费", 120},
    {"02.002.02", "移动电话费", 200},
    {"02.002.03", "传真费", 60, true},
    {"02.003", "水电费", 1300},
    {"02.004", "房屋租金", 16000},
    {"02.005", "物业管理费", 2100},
    {"03", "销售费用"},
    {"03.001", "广告宣传费", 5400},
    {"03.002", "业务招待费", 880},
    {"03.003", "差旅费"},
    {"03.003.01", "交通费", 420},
    {"03.003.02", "住宿费", 560},
    {"03.003.03", "出差补贴", 240},
    {"03.004", "运输费", 950},
    {"03.005", "展览费", 7600},
    {"04", "财务费用"},
    {"04.001", "银行手续费", 35},
    {"04.002", "利息支出", 1800},
    {"05", "车辆费用"},
    {"05.001", "燃油费", 380},
    {"05.002", "过路过桥费", 90},
    {"05.003", "车辆保险费", 4200},
    {"05.004", "维修保养费", 1100},
    {"06", "税金", 2900},
    {"07", "筹建费用", 0, true},
    {"07.001", "开办费", 5100, true},
    {"07.002", "装修费", 23000, true},
    {"08", "低值易耗品", 340},
};

constexpr SampleClass kAccounts[] = {
    {"01", "现金"},
    {"01.001", "库存现金", 120000},
    {"01.002", "门店备用金", 20000},
    {"02", "银行存款"},
    {"02.001", "工商银行基本户", 1800000},
    {"02.002", "建设银行一般户", 650000},
    {"02.003", "招商银行结算户", 420000},
    {"02.004", "农业银行旧户", 3000, true},
    {"03", "电子账户"},
    {"03.001", "支付宝", 46000},
    {"03.002", "微信商户", 38000},
};

constexpr SampleGoods kGoods[] = {
    {.code = "01", .name = "办公设备"},
    {"01.001", "激光打印机", "LP-2100", "台", "台", 1, 128000},
    {"01.002", "针式打印机", "DP-630", "台", "台", 1, 176000},
    {"01.003", "扫描仪", "SC-90", "台", "台", 1, 89900},
    {"01.004", "碎纸机", "S8", "台", "台", 1, 46800},
    {"01.005", "投影仪", "P-300", "台", "台", 1, 329900},
    {.code = "02", .name = "耗材"},
    {"02.001", "复印纸A4", "70g", "包", "箱", 8, 1980},
    {"02.002", "复印纸A3", "80g", "包", "箱", 5, 4350},
    {"02.003", "硒鼓", "T-12A", "支", "盒", 4, 15800},
    {"02.004", "色带", "R-630", "条", "盒", 12, 1250},
    {"02.005", "墨盒", "I-805", "支", "盒", 6, 7650},
    {.code = "03", .name = "五金"},
    {"03.001", "不锈钢螺丝", "M6*20", "公斤", "箱", 25, 2640},
    {"03.002", "铜芯电缆", "BV2.5", "米", "卷", 100, 215},
    {"03.003", "角钢", "40*4", "公斤", "公斤", 1, 480},
    {"03.004", "电焊条", "J422", "公斤", "箱", 20, 690},
    {.code = "04", .name = "日用百货"},
    {"04.001", "洗手液", "500ml", "瓶", "箱", 12, 1290},
    {"04.002", "纸巾", "200抽", "包", "箱", 36, 320},
    {"04.003", "保温杯", "450ml", "个", "箱", 24, 5900},
    {"04.004", "台灯", "LED-5", "盏", "箱", 10, 8800},
    {.code = "05", .name = "食品"},
    {"05.001", "绿茶", "250g", "罐", "箱", 20, 6800},
    {"05.002", "大米", "东北珍珠", "公斤", "袋", 25, 620},
    {"05.003", "食用油", "5L", "桶", "箱", 4, 6990},
};

constexpr SampleUser kUsers[] = {
    {1, "管理员", true}, {16, "王芳", false}, {23, "李建国", false},
    {35, "陈静", false}, {42, "赵磊", false}, {58, "刘洋", true},
};

constexpr Names kWords = {
    "宏达", "华信", "金盛", "恒通", "瑞丰", "天成", "永利", "中科",   "东方", "鼎新", "百川", "正大",
    "嘉禾", "远航", "博雅", "新锐", "三友", "万象", "福临", "聚源",   "启明", "安泰", "顺达", "兴业",
    "联创", "广源", "佳美", "诚信", "海纳", "星辉", "光明", "长虹桥", "美林", "泰和", "隆昌", "德盛",
    "康宁", "合众", "凯旋", "卓越", "众诚", "一诺", "锦绣", "龙腾",   "飞跃", "智汇", "和谐", "春晖",
};
constexpr Names kTrades = {
    "电子", "商贸", "机械", "五金",     "食品", "服饰",     "建材",     "科技", "实业",     "办公用品",
    "印刷", "物流", "化工", "医疗器械", "家具", "文化传播", "汽车配件", "农业", "酒店用品", "网络",
};
constexpr Names kEndings = {"有限公司", "有限责任公司", "经营部", "商行", "股份有限公司", "厂"};
constexpr Names kSurnames = {
    "王", "李", "张", "刘", "陈", "杨", "黄", "赵", "吴", "周", "徐", "孙", "马", "朱", "胡",   "林",
    "郭", "何", "高", "罗", "郑", "梁", "谢", "宋", "唐", "许", "邓", "冯", "韩", "曹", "欧阳", "司马",
};
constexpr Names kGivenNames = {
    "伟",   "芳",   "娜",   "敏",   "静",   "丽",   "强",   "磊",   "军",   "洋",
    "勇",   "艳",   "杰",   "娟",   "涛",   "明",   "超",   "秀英", "建国", "志强",
    "海燕", "晓明", "丽华", "国庆", "小红", "文博", "雨桐", "子轩", "佳怡", "浩然",
};
constexpr Names kIncomeNotes = {"",         "按合同收取", "客户上门交款", "已开收据",
                                "分期收取", "补记上月",   "经理批准",     "现场结清"};
constexpr Names kExpenseNotes = {"",         "按预算列支", "已附发票", "待补发票",
                                 "员工报销", "合同付款",   "月结",     "临时采购"};
constexpr Names kOddNames = {"老李's小店",     "百分之百%超市",     "下划线_工作室",
                             "“双引号”广告社", "A&B(中国)贸易公司", "老张 -- 土产"};

}  // namespace

const std::span<const SampleRegion> kSampleRegions = kRegions;
const std::span<const SampleClass> kSampleSupplierGroups = kSupplierGroups;
const std::span<const SampleClass> kSampleDepartments = kDepartments;
const std::span<const SampleClass> kSampleIncomeClasses = kIncomeClasses;
const std::span<const SampleClass> kSampleExpenseClasses = kExpenseClasses;
const std::span<const SampleClass> kSampleAccounts = kAccounts;
const std::span<const SampleGoods> kSampleGoods = kGoods;
const std::span<const SampleUser> kSampleUsers = kUsers;
const std::span<const std::string_view> kSampleWords = kWords;
const std::span<const std::string_view> kSampleTrades = kTrades;
const std::span<const std::string_view> kSampleEndings = kEndings;
const std::span<const std::string_view> kSampleSurnames = kSurnames;
const std::span<const std::string_view> kSampleGivenNames = kGivenNames;
const std::span<const std::string_view> kSampleIncomeNotes = kIncomeNotes;
const std::span<const std::string_view> kSampleExpenseNotes = kExpenseNotes;
const std::span<const std::string_view> kSampleOddNames = kOddNames;

}  // namespace qor
