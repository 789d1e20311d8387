#include "embedded/statement_rows.h"

#include <algorithm>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "embedded/goods_lines.h"
#include "embedded/item_texts.h"
#include "embedded/money.h"
#include "embedded/report_conditions.h"
#include "embedded/statement_accounts.h"

namespace qor {

namespace {

class StatementWriter {
 public:
    StatementWriter(AccountSet& set, const Dictionary& filter, const StatementAccounts& accounts)
        : accounts_(accounts),
          items_(set, ReportFilter(filter).WantsShortNumbers()),
          firstDay_(ReportFilter(filter).Day("BDate")) {
        const ReportFilter read(filter);
        if (read.Flag("ShowDetail")) goods_.emplace(set, read.WantsShortNumbers(), BillsOf(accounts.shown()));
        set_ = MakeRef<ColumnarRecordSet>(Fields());
        Reserve(accounts.shown());
        for (const BillKindRow& row : kBillKinds) {
            kindNames_.emplace_back(row.name);
        }
    }

    void Write(const StatementAccount& account) {
        balance_ = account.begin;
        AddOpening(items_.Of(account.party));
        for (const StatementBill& bill : account.bills) {
            const Texts texts = TextsOf(bill);
            const auto lines = goods_ ? goods_->Of(bill.bill) : std::span<const GoodsLineRow>{};
            StatementSums rest = bill.sums;
            for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
                AddBill(bill, texts, {.raised = lines[i].amount}, &lines[i]);
                rest.raised -= lines[i].amount;
            }
            AddBill(bill, texts, rest, lines.empty() ? nullptr : &lines.back());
        }
    }

    const Ref<ColumnarRecordSet>& rows() const { return set_; }

 private:
    struct Texts {
        Value number, voucher, explanation, invoice;
    };

    Texts TextsOf(const StatementBill& bill) {
        RowTexts::Reader texts = accounts_.TextsOf(bill);
        Value number = texts.Next(), voucher = texts_.Share(texts.Next());
        Value explanation = texts_.Share(texts.Next());
        const std::string_view invoice = texts.Next();
        return {std::move(number), std::move(voucher), std::move(explanation),
                invoice.empty() ? blank_ : Value(invoice)};
    }

    void Reserve(const std::vector<StatementAccount>& accounts) {
        std::size_t rows = accounts.size();
        for (const StatementAccount& account : accounts) {
            rows += account.bills.size();
        }
        set_->Reserve(rows);
    }

    std::vector<std::string> Fields() const {
        std::vector<std::string> fields = {"FDate", "FBillTypeName", "FBillNo", "FVchNumber"};
        if (goods_) {
            for (const char* field :
                 {"FItemName", "FItemNumber", "FModel", "FAuxName", "FBatchNo", "FUnitName", "FQty", "FPrice",
                  "FShowUnitName", "FShowQty", "FShowPrice"}) {
                fields.emplace_back(field);
            }
        }
        for (const char* field : {"FExplanation", "FReceivableAmount", "FRealAmount", "FDiscountAmount",
                                  "FBalanceAmount", "FDeptName", "FEmpName", "FInvoiceNo"}) {
            fields.emplace_back(field);
        }
        return fields;
    }

    void AddOpening(const ItemTexts::Texts& party) {
        column_ = 0;
        Add(firstDay_ ? Value(Date{static_cast<double>(*firstDay_)}) : Value::Null());
        Add("期初余额");
        Add(blank_);
        Add(blank_);
        AddGoods(nullptr);
        Add(party.number.text() + " " + party.name.text());
        AddSums({});
        for (int i = 0; i < 3; ++i) {
            Add(blank_);
        }
    }

    void AddBill(const StatementBill& bill, const Texts& texts, const StatementSums& sums,
                 const GoodsLineRow* goods) {
        column_ = 0;
        Add(Date{static_cast<double>(bill.day)});
        Add(kindNames_[static_cast<std::size_t>(bill.kind) - 1]);
        Add(texts.number);
        Add(texts.voucher);
        AddGoods(goods);
        Add(texts.explanation);
        AddSums(sums);
        Add(items_.Of(bill.department).name);
        Add(items_.Of(bill.employee).name);
        Add(texts.invoice);
    }

    void AddGoods(const GoodsLineRow* goods) {
        if (!goods_) return;
        if (!goods) {
            for (int i = 0; i < 5; ++i) {
                Add(blank_);
            }
            for (const Value& cell :
                 {blank_, Value::Null(), Value::Null(), blank_, Value::Null(), Value::Null()}) {
                Add(cell);
            }
            return;
        }
        Add(goods->goods->item->name);
        Add(goods->goods->item->number);
        Add(goods->goods->model);
        Add(goods->aux);
        Add(goods->batch);
        Add(goods->goods->unit->name);
        Add(goods->Quantity());
        Add(goods->Price());
        Add(goods->shownUnit->name);
        Add(goods->ShownQuantity());
        Add(goods->ShownPrice());
    }

    void AddSums(const StatementSums& sums) {
        balance_ += sums.Balance();
        Add(Yuan(sums.raised));
        Add(Yuan(sums.real));
        Add(Yuan(sums.discount));
        Add(Yuan(balance_));
    }

    void Add(Value value) { set_->AddCell(column_++, std::move(value)); }

    const StatementAccounts& accounts_;
    ItemTexts items_;
    SharedTexts texts_;
    std::optional<std::int64_t> firstDay_;
    std::optional<GoodsLines> goods_;
    Ref<ColumnarRecordSet> set_;
    std::vector<Value> kindNames_;
    const Value blank_ = "";
    std::size_t column_ = 0;
    std::int64_t balance_ = 0;
};

/// The breaks and the pages, one of each for a party.
class PageWriter {
 public:
    explicit PageWriter(AccountSet& set)
        : contact_(set.database(), "SELECT FContact, FPhone FROM t_Party WHERE FItemID=?") {}

    void Write(const StatementAccount& account, const ItemTexts::Texts& party, std::int32_t firstRow,
               std::int32_t rows) {
        const std::int32_t page = breaks_->RowCount() + 1;
        breaks_->AddRow({page, party.number, firstRow, rows});
        const bool found = contact_.With(account.party).Step();
        const Value contact = found ? contact_.Text(0) : std::string_view();
        const Value phone = found ? contact_.Text(1) : std::string_view();
        pages_->AddRow({page, party.number, party.name, contact, phone, Yuan(account.begin),
                        Yuan(account.period.raised), Yuan(account.period.real), Yuan(account.period.discount),
                        Yuan(account.End())});
    }

    const Ref<ColumnarRecordSet>& breaks() const { return breaks_; }
    const Ref<ColumnarRecordSet>& pages() const { return pages_; }

 private:
    Statement contact_;
    Ref<ColumnarRecordSet> breaks_ = MakeRef<ColumnarRecordSet>(
        std::vector<std::string>{"FPage", "FItemNumber", "FFirstRow", "FRowCount"});
    Ref<ColumnarRecordSet> pages_ = MakeRef<ColumnarRecordSet>(
        std::vector<std::string>{"FPage", "FItemNumber", "FItemName", "FContact", "FPhone", "FInitAmount",
                                 "FReceivableAmount", "FRealAmount", "FDiscountAmount", "FBalanceAmount"});
};

}  // namespace

StatementAnswer StatementOfAccount(AccountSet& set, PartySide side, const Dictionary& dictionary) {
    const ReportFilter filter(dictionary);
    const StatementAccounts accounts(set, side, dictionary);
    StatementWriter writer(set, dictionary, accounts);
    PageWriter pages(set);
    ItemTexts items(set, filter.WantsShortNumbers());
    for (const StatementAccount& account : accounts.shown()) {
        const std::int32_t firstRow = writer.rows()->RowCount();
        writer.Write(account);
        pages.Write(account, items.Of(account.party), firstRow, writer.rows()->RowCount() - firstRow);
    }
    StatementAnswer answer{.rows = writer.rows(), .rowBreaks = {}, .pages = {}};
    if (filter.Flag("PrintByPg")) {
        answer.rowBreaks = pages.breaks();
        answer.pages = pages.pages();
    }
    return answer;
}

}  // namespace qor
