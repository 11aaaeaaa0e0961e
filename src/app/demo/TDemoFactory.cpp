#include "app/demo/TDemoFactory.h"

namespace alinhavo {

TDemoFactory::TDemoFactory(TSqlDatabase& database, std::uint64_t seed, TDateTime today)
    : database_(database)
    , seed_(seed)
    , today_(today.Date())
{
}

// Sectors come before everything that names one, products before what is made of them, lots before their reservations.
void TDemoFactory::Fill()
{
    FillCompany();
    FillParameters();
    FillPeriods();

    FillSectors();
    FillFlows();
    FillParts();
    FillStockCodes();
    FillFinanceCodes();

    FillPlaces();
    FillClientGroups();
    FillFactory();
    FillSubcontractors();
    FillClients();
    FillSuppliers();
    FillEmployees();

    FillSizes();
    FillProductCodes();
    FillMaterialCodes();
    FillMaterials();
    FillProducts();
    FillSemiFinished();
    FillProductParts();
    FillProductGrades();
    FillProductOperations();
    FillMeasures();
    FillPrints();
    FillSubcontractorsOfProducts();
    FillCertificates();
    FillFabricConsumption();

    FillPriceTables();
    FillSectorPrices();
    FillColourSizePrices();
    FillSalesPrices();
    FillProductStock();
    FillMaterialStock();
    FillStockHistory();

    FillOrderTypes();
    MakeOrders();
    FillSalesOrders();
    FillOrders();
    FillOrderNotes();
    FillPlans();
    FillTechnicalSheets();
    FillReservations();

    FillDefects();
    FillInspectionTypes();
    FillUsers();
    FillRights();
    database_.CommitRetaining();
}

TDateTime TDemoFactory::NextWorkday(TDateTime day)
{
    constexpr int friday = 5;
    while (day.DayOfWeek() > friday)
        day = day.AddDays(1);
    return day;
}

TDateTime TDemoFactory::AddWorkdays(TDateTime day, int count)
{
    while (count-- > 0)
        day = NextWorkday(day.AddDays(1));
    return day;
}

} // namespace alinhavo
