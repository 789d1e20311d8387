#include "embedded/schema.h"

#include "embedded/bill_kinds.h"

namespace qor {

namespace {

constexpr const char* kTables = R"sql(
CREATE TABLE t_SystemProfile(
    FCategory TEXT NOT NULL,
    FKey      TEXT NOT NULL,
    FValue    TEXT,
    PRIMARY KEY(FCategory, FKey)) WITHOUT ROWID;

CREATE TABLE t_PeriodDate(
    FYear      INTEGER NOT NULL,
    FPeriod    INTEGER NOT NULL,
    FStartDate DATE NOT NULL,
    FEndDate   DATE NOT NULL,
    PRIMARY KEY(FYear, FPeriod)) WITHOUT ROWID;

-- Who may log in. A user with all rights is not subject to data rights.
CREATE TABLE t_User(
    FUserID    INTEGER PRIMARY KEY,
    FName      TEXT NOT NULL,
    FAllRights INTEGER NOT NULL);

CREATE TABLE t_ItemClass(
    FItemClassID INTEGER PRIMARY KEY,
    FNumber      TEXT NOT NULL,
    FName        TEXT NOT NULL);

-- All base data, categories included: a category has FDetail 0. FLevel counts from 1 at the top.
-- FDeleted marks what is disabled: it stays on old bills and is chosen no more.
CREATE TABLE t_Item(
    FItemID      INTEGER PRIMARY KEY,
    FItemClassID INTEGER NOT NULL REFERENCES t_ItemClass,
    FNumber      TEXT NOT NULL COLLATE NOCASE,
    FName        TEXT NOT NULL,
    FLevel       INTEGER NOT NULL,
    FParentID    INTEGER REFERENCES t_Item,
    FDetail      INTEGER NOT NULL,
    FDeleted     INTEGER NOT NULL);

-- What a customer or a supplier has beyond an item. FRightUserID lists the users who may see it.
CREATE TABLE t_Party(
    FItemID        INTEGER PRIMARY KEY REFERENCES t_Item,
    FRightUserID   TEXT NOT NULL,
    FMatchSupplyID INTEGER NOT NULL DEFAULT 0,
    FCreditLimit   MONEY NOT NULL,
    FCreditDays    INTEGER NOT NULL,
    FContact       TEXT,
    FPhone         TEXT);

CREATE VIEW t_Organization AS
    SELECT i.FItemID, i.FNumber, i.FName, p.FRightUserID, p.FMatchSupplyID, p.FCreditLimit, p.FCreditDays,
           p.FContact, p.FPhone, i.FDeleted
    FROM t_Party p JOIN t_Item i ON i.FItemID = p.FItemID WHERE i.FItemClassID = 1;

CREATE VIEW t_Supplier AS
    SELECT i.FItemID, i.FNumber, i.FName, p.FRightUserID, p.FCreditLimit, p.FCreditDays, p.FContact, p.FPhone,
           i.FDeleted
    FROM t_Party p JOIN t_Item i ON i.FItemID = p.FItemID WHERE i.FItemClassID = 8;

CREATE TABLE t_Employee(
    FItemID INTEGER PRIMARY KEY REFERENCES t_Item,
    FDeptID INTEGER NOT NULL REFERENCES t_Item);

-- Cash and bank accounts; FBeginAmount is the balance before the account set's first day.
CREATE TABLE t_Account(
    FItemID      INTEGER PRIMARY KEY REFERENCES t_Item,
    FIsBank      INTEGER NOT NULL,
    FBeginAmount MONEY NOT NULL);

-- FShowRate base units make one FShowUnitID.
CREATE TABLE t_Goods(
    FItemID     INTEGER PRIMARY KEY REFERENCES t_Item,
    FModel      TEXT NOT NULL,
    FUnitID     INTEGER NOT NULL REFERENCES t_Item,
    FShowUnitID INTEGER NOT NULL REFERENCES t_Item,
    FShowRate   INTEGER NOT NULL,
    FPrice      INTEGER NOT NULL);

CREATE TABLE t_BillType(
    FBillType   INTEGER PRIMARY KEY,
    FPrefix     TEXT NOT NULL,
    FName       TEXT NOT NULL,
    FReceivable INTEGER NOT NULL,
    FReceived   INTEGER NOT NULL,
    FAdvanceIn  INTEGER NOT NULL,
    FPayable    INTEGER NOT NULL,
    FPaid       INTEGER NOT NULL,
    FAdvanceOut INTEGER NOT NULL,
    FTarget     INTEGER NOT NULL,
    FCash       INTEGER NOT NULL);

-- FSettleAmount is the part that was paid at once on FAcctID. FDiscount is what a receipt or payment lets go
-- beyond its money. FRelatedID: the bill that a return, a reversal or a consignment's settlement goes back to.
CREATE TABLE t_Bill(
    FBillID       INTEGER PRIMARY KEY,
    FBillType     INTEGER NOT NULL REFERENCES t_BillType,
    FBillNo       TEXT NOT NULL,
    FDate         DATE NOT NULL,
    FState        INTEGER NOT NULL,
    FCustID       INTEGER REFERENCES t_Item,
    FSupplyID     INTEGER REFERENCES t_Item,
    FToPartyID    INTEGER REFERENCES t_Item,
    FDeptID       INTEGER REFERENCES t_Item,
    FEmpID        INTEGER REFERENCES t_Item,
    FAcctID       INTEGER REFERENCES t_Item,
    FToAcctID     INTEGER REFERENCES t_Item,
    FAmount       MONEY NOT NULL,
    FSettleAmount MONEY NOT NULL,
    FDiscount     MONEY NOT NULL,
    FDueDate      DATE,
    FRelatedID    INTEGER REFERENCES t_Bill,
    FBillerID     INTEGER REFERENCES t_User,
    FInvoiceNo    TEXT,
    FVchNumber    TEXT,
    FExplanation  TEXT);

-- The user fields of a bill's head, for the few bills that have any.
CREATE TABLE t_BillHeadField(
    FBillID INTEGER NOT NULL REFERENCES t_Bill,
    FIndex  INTEGER NOT NULL,
    FText   TEXT NOT NULL,
    PRIMARY KEY(FBillID, FIndex)) WITHOUT ROWID;

-- Lines of the bills that carry income or expense classes. The part settled at once stands in each line.
CREATE TABLE t_ClassEntry(
    FBillID       INTEGER NOT NULL REFERENCES t_Bill,
    FIndex        INTEGER NOT NULL,
    FClassID      INTEGER NOT NULL REFERENCES t_Item,
    FAmount       MONEY NOT NULL,
    FSettleAmount MONEY NOT NULL,
    FNote         TEXT,
    PRIMARY KEY(FBillID, FIndex)) WITHOUT ROWID;

-- Lines of the bills that carry goods. FQty and FPrice are of the base unit.
CREATE TABLE t_GoodsEntry(
    FBillID     INTEGER NOT NULL REFERENCES t_Bill,
    FIndex      INTEGER NOT NULL,
    FItemID     INTEGER NOT NULL REFERENCES t_Item,
    FQty        INTEGER NOT NULL,
    FPrice      INTEGER NOT NULL,
    FAmount     MONEY NOT NULL,
    FShowUnitID INTEGER NOT NULL REFERENCES t_Item,
    FShowRate   INTEGER NOT NULL,
    FAuxName    TEXT,
    FBatchNo    TEXT,
    FNote       TEXT,
    PRIMARY KEY(FBillID, FIndex)) WITHOUT ROWID;

-- What settled what: on FDate the bill FBillID took FAmount, and let go FDiscount besides, from the open
-- amount of FTargetBillID, and used up FAmount of FSourceBillID. The source is the receipt or payment itself,
-- or the advance or counter-bill that a write-off uses up; nothing where the claim moves to another party.
CREATE TABLE t_Settlement(
    FSettlementID INTEGER PRIMARY KEY,
    FBillID       INTEGER NOT NULL REFERENCES t_Bill,
    FSourceBillID INTEGER REFERENCES t_Bill,
    FTargetBillID INTEGER NOT NULL REFERENCES t_Bill,
    FDate         DATE NOT NULL,
    FAmount       MONEY NOT NULL,
    FDiscount     MONEY NOT NULL);
)sql";

constexpr const char* kIndices = R"sql(
CREATE UNIQUE INDEX i_Item_Number ON t_Item(FItemClassID, FNumber);
CREATE UNIQUE INDEX i_Bill_Number ON t_Bill(FBillType, FDate, FBillNo);
CREATE INDEX i_Bill_Cust ON t_Bill(FCustID, FDate) WHERE FCustID IS NOT NULL;
CREATE INDEX i_Bill_Supply ON t_Bill(FSupplyID, FDate) WHERE FSupplyID IS NOT NULL;
CREATE INDEX i_Bill_ToParty ON t_Bill(FToPartyID, FDate) WHERE FToPartyID IS NOT NULL;
CREATE INDEX i_Bill_Acct ON t_Bill(FAcctID, FDate) WHERE FAcctID IS NOT NULL;
CREATE INDEX i_Bill_ToAcct ON t_Bill(FToAcctID, FDate) WHERE FToAcctID IS NOT NULL;
CREATE INDEX i_Bill_Related ON t_Bill(FRelatedID) WHERE FRelatedID IS NOT NULL;
CREATE INDEX i_Settlement_Bill ON t_Settlement(FBillID);
CREATE INDEX i_Settlement_Target ON t_Settlement(FTargetBillID);
CREATE INDEX i_Settlement_Source ON t_Settlement(FSourceBillID) WHERE FSourceBillID IS NOT NULL;
)sql";

}  // namespace

void CreateTables(Database& database) {
    database.Run("PRAGMA application_id = " + std::to_string(kAccountSetMark));
    database.Run("PRAGMA user_version = " + std::to_string(kSchemaVersion));
    database.Run(kTables);
    Statement kind(database, "INSERT INTO t_BillType VALUES(?,?,?,?,?,?,?,?,?,?,?)");
    for (const BillKindRow& row : kBillKinds) {
        kind.With(static_cast<std::int32_t>(row.kind), row.prefix, row.name, row.receivable, row.received,
                  row.advanceIn, row.payable, row.paid, row.advanceOut, row.target, row.cash)
            .Run();
    }
    Statement itemClass(database, "INSERT INTO t_ItemClass VALUES(?,?,?)");
    for (const ItemClassRow& row : kItemClasses) {
        itemClass.With(row.number, row.code, row.name).Run();
    }
}

void CreateIndices(Database& database) { database.Run(kIndices); }

}  // namespace qor
