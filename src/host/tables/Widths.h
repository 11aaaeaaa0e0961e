#pragma once

/// Characters of the codes and names that occur in more than one table, so that a code is as wide wherever it stands.
namespace alinhavo::width {

inline constexpr int application = 4;
inline constexpr int bank = 3;
inline constexpr int brand = 5;
inline constexpr int certificate = 6;
inline constexpr int city = 7;
inline constexpr int client = 5; ///< also carriers and sales representatives
inline constexpr int clientGroup = 4;
inline constexpr int collection = 4;
inline constexpr int colour = 6;
inline constexpr int consumptionRange = 6;
inline constexpr int defect = 5;
inline constexpr int employee = 8;
inline constexpr int entry = 6;
inline constexpr int family = 5;
inline constexpr int financeClass = 6;
inline constexpr int fiscalClass = 15;
inline constexpr int fiscalSector = 10;
inline constexpr int flag = 1;
inline constexpr int flow = 3;
inline constexpr int history = 4;
inline constexpr int inspectionType = 2;
inline constexpr int invoice = 10;
inline constexpr int label = 5;
inline constexpr int lot = 20;
inline constexpr int machine = 3;
inline constexpr int materialGroup = 4;
inline constexpr int measureCode = 6;
inline constexpr int menuLevel = 20;
inline constexpr int nature = 10;
inline constexpr int operation = 5;
inline constexpr int order = 6;
inline constexpr int orderType = 3;
inline constexpr int part = 2;
inline constexpr int payable = 6;
inline constexpr int period = 6;
inline constexpr int place = 10;
inline constexpr int postcode = 9;
inline constexpr int priceTable = 3;
inline constexpr int product = 15; ///< also materials and prints
inline constexpr int productGroup = 3;
inline constexpr int productLine = 5;
inline constexpr int programme = 8;
inline constexpr int quality = 2;
inline constexpr int salesOrder = 12;
inline constexpr int sector = 3;
inline constexpr int series = 5;
inline constexpr int situation = 3;
inline constexpr int size = 4;
inline constexpr int sizeRange = 4;
inline constexpr int stockMovement = 3;
inline constexpr int unit = 3;
inline constexpr int user = 10;
inline constexpr int warehouse = 3;

inline constexpr int colourName = 80;
inline constexpr int description = 60;
inline constexpr int name = 80;
inline constexpr int productName = 100;
inline constexpr int sectorName = 80;
inline constexpr int userName = 40;

inline constexpr int longText = 8000;

} // namespace alinhavo::width
