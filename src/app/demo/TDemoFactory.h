#pragma once

#include "app/demo/catalogue.h"
#include "app/demo/TRandom.h"
#include "forms/TDateTime.h"
#include "platform/database/TSqlDatabase.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// A user of the demonstration factory, as the command tells them to its caller.
struct TDemoUser {
    std::string_view name;
    std::string_view role;
};

/// How much of each the factory has.
struct TDemoSummary {
    int products = 0;
    int sectors = 0;
    int flows = 0;
    int subcontractors = 0;
    int salesOrders = 0;
    int orders = 0;
    int pieces = 0; ///< of all orders
    int movements = 0; ///< lines of all movements
};

/// Fills a fresh schema with a garment factory: its registers, its orders, and how they moved. The same seed and day give the
/// same rows, on every server, the passwords' salt excepted.
class TDemoFactory {
public:
    /// Dates are told from `today`, which must not be blank.
    TDemoFactory(TSqlDatabase& database, std::uint64_t seed, TDateTime today);

    /// Writes the registers and the orders, none of them moved yet, and commits. Only once, into a schema without rows.
    void Fill();
    /// Moves the orders through the factory up to today and commits. Once, after Fill.
    void MakeHistory();
    /// Copies a third of the orders with their history once less than `scale` times, spread over the two years before, and
    /// commits. Once, after MakeHistory. 1 does nothing.
    void Multiply(int scale);

    const TDemoSummary& Summary() const { return summary_; }
    /// Everybody's password is `Password`.
    static const std::vector<TDemoUser>& Users();
    static constexpr std::string_view Password = "demo";

private:
    struct TProduct {
        const demo::TModel* model = nullptr;
        std::vector<demo::TColour> colours;
        double cost = 0;
        double price = 0;
    };
    struct TSubcontractor {
        std::string code;
        std::string name;
        std::string city;
        demo::TTrade trade = demo::TTrade::House;
        bool preferred = false;
        bool blocked = false;
        bool certified = true; ///< holds what children's clothes demand
    };
    struct TOrderItem {
        std::string_view colour;
        std::string_view size;
        std::size_t position = 0; ///< of the size in its range, from 0
        int quantity = 0;
    };
    struct TOrder {
        std::string number;
        const TProduct* product = nullptr;
        std::string salesOrder; ///< none for what goes to stock
        std::string client;
        std::string_view type;
        bool urgent = false;
        bool isCalledOff = false; ///< after it was made
        TDateTime start;
        TDateTime end;
        TDateTime delivery; ///< to the client or to stock
        int packs = 0; ///< times the usual weights of the sizes
        std::vector<std::string_view> colours;
        std::vector<TOrderItem> items;
    };
    /// Pieces of an order's part that move together.
    struct TBatch {
        const TOrder* order = nullptr;
        std::string_view part;
        const demo::TFlow* flow = nullptr;
        std::string_view sector;
        std::string number = {}; ///< none in the first sector
        bool isMain = false; ///< the others leave the last sector with it
        bool isOnlyPart = false;
        bool mayDivide = true;
        bool isRest = false; ///< of a batch that has moved in part

        bool IsLast() const { return sector == flow->sectors.back(); }
    };
    /// A line of a product's technical sheet.
    struct TSheetRow {
        std::string_view part;
        std::string_view sector;
        const demo::TSheetLine* line = nullptr;
        std::string consumptionRange;
        double quantity = 0;
        double price = 0;
    };
    /// What is left of a lot of material.
    struct TLot {
        std::string_view material;
        std::string_view colour;
        std::string lot;
        std::string_view warehouse;
        double quantity = 0;
    };

    TRandom Random(std::string_view subject) const { return {seed_, subject}; }

    void FillCompany();
    void FillParameters();
    void FillPeriods();

    void FillSectors();
    void FillFlows();
    void FillParts();

    void FillStockCodes();
    void FillFinanceCodes();

    void FillPlaces();
    void FillClientGroups();
    void FillFactory();
    void FillSubcontractors();
    void FillClients();
    void FillSuppliers();
    void FillCertificates();
    void FillEmployees();

    void FillSizes();
    void FillProductCodes();
    void FillProducts();
    void FillProductParts();
    void FillProductGrades();
    void FillProductOperations();
    void FillMeasures();
    void FillPrints();
    void FillSubcontractorsOfProducts();
    void FillSemiFinished();

    void FillMaterialCodes();
    void FillMaterials();
    void FillFabricConsumption();

    void FillPriceTables();
    void FillSectorPrices();
    void FillColourSizePrices();
    void FillSalesPrices();

    void FillProductStock();
    void FillMaterialStock();
    void FillStockHistory();

    void FillOrderTypes();
    void MakeOrders();
    void MakeSalesOrder(TRandom& random, int number, TDateTime start);
    TOrder MakeOrder(TRandom& random, const TProduct& product, TDateTime start);
    void FillSalesOrders();
    void FillOrders();
    void FillOrderNotes();
    void FillPlans();
    void FillTechnicalSheets();
    void FillReservations();

    void FillDefects();
    void FillInspectionTypes();

    void FillUsers();
    void FillRights();

    void EnterProduction(TRandom& random, const TOrder& order, std::multimap<TDateTime, TBatch>& due,
        std::map<const TOrder*, int>& elsewhere);
    void MoveBatch(TRandom& random, class TMovementClerk& clerk, TDateTime day, const TBatch& batch,
        std::multimap<TDateTime, TBatch>& due, std::map<const TOrder*, int>& elsewhere);
    std::string DestinationOf(TRandom& random, const TBatch& batch) const;
    void CountOrders();
    void StockCopies();
    void NumberLinesFrom(std::int64_t key);
    void CloseInventory(TDateTime day);
    void DemandConsumptions(std::string_view flag);

    /// The sheet of all parts; the cost of a product and the materials of its orders both follow from it.
    static std::vector<TSheetRow> SheetOf(const demo::TModel& model);
    /// What the default price table pays at a sector.
    static double SectorPrice(const demo::TSector& sector, const demo::TModel& model);
    static bool IsForChildren(const demo::TModel& model) { return model.line == "INFA"; }
    static std::string_view ColourOf(const demo::TSheetLine& line, std::string_view colourOfPiece);
    /// What a part of the piece wears: the second part of a set has the set's next colour.
    static const demo::TColour& ColourOfPart(const TProduct& product, std::string_view colour, std::string_view part);
    /// Pieces of one colour that take the row's material.
    static int PiecesOf(const TOrder& order, std::string_view colour, const TSheetRow& row);
    static std::string Period(TDateTime day);
    static std::string Programme(TDateTime day);

    const TSubcontractor& MainSubcontractor(const TProduct& product, const demo::TSector& sector) const;
    std::vector<const TSubcontractor*> SubcontractorsFor(const TProduct& product, const demo::TSector& sector) const;
    /// The day itself unless it is a Saturday or Sunday.
    static TDateTime NextWorkday(TDateTime day);
    static TDateTime AddWorkdays(TDateTime day, int count);

    TSqlDatabase& database_;
    std::uint64_t seed_;
    TDateTime today_;
    TDemoSummary summary_;
    std::vector<TProduct> products_;
    std::vector<TSubcontractor> subcontractors_;
    std::vector<std::string> clients_;
    std::vector<TOrder> orders_; ///< by number; those of a sales order stand together
    std::vector<TLot> lots_;
};

} // namespace alinhavo
