#include "app/demo/codes.h"
#include "app/demo/TDemoFactory.h"
#include "platform/services/TTableWriter.h"

#include <algorithm>
#include <array>

namespace alinhavo {
namespace {

using enum demo::TTrade;

struct TCity {
    std::string_view code;
    std::string_view name;
    int postcode; ///< the first five digits
    std::string_view phone;
};

constexpr auto cities = std::to_array<TCity>({
    {"4202404", "Blumenau", 89010, "47"},
    {"4202909", "Brusque", 88350, "47"},
    {"4205902", "Gaspar", 89110, "47"},
    {"4206306", "Guabiruba", 88360, "47"},
    {"4207106", "Ilhota", 88320, "47"},
    {"4207502", "Indaial", 89080, "47"},
    {"4208906", "Jaraguá do Sul", 89251, "47"},
    {"4213203", "Pomerode", 89107, "47"},
    {"4218202", "Timbó", 89120, "47"},
    {"4202701", "Botuverá", 88370, "47"},
});

constexpr auto streets = std::to_array<std::string_view>(
    {"Rua das Bromélias", "Rua Vereador Osório Kühn", "Rua São José", "Rua Independência", "Rua dos Atiradores",
        "Avenida Beira-Rio", "Rua João Pessoa Sobrinho", "Rua Sete de Setembro", "Rua Dona Emília Haas",
        "Rua Ribeirão das Pedras", "Rua Santo Antônio", "Servidão Três Irmãos"});

constexpr auto districts = std::to_array<std::string_view>({"Centro", "Águas Claras", "Garcia", "São Pedro", "Limeira",
    "Figueira", "Bela Vista", "Santa Luzia", "Itoupava", "Ribeirão Fundo"});

constexpr auto dueDays = std::to_array<std::string_view>(
    {"05  Todo dia 5", "10  Todo dia 10", "15  Todo dia 15", "20  Todo dia 20", "25  Todo dia 25"});

struct TWorkshop {
    std::string_view name;
    std::string_view shortName;
    demo::TTrade trade;
};

constexpr auto workshops = std::to_array<TWorkshop>({
    {"Bordados Ponto Cheio Ltda.", "Ponto Cheio", Embroidery},
    {"Bordaria Agulha d'Ouro ME", "Agulha d'Ouro", Embroidery},
    {"Estamparia Três Cores Ltda.", "Três Cores", Printing},
    {"Serigrafia Traço Fino ME", "Traço Fino", Printing},
    {"Estamparia Digital Aquarela Ltda.", "Aquarela", Printing},
    {"Facção Irmãs Zancanaro ME", "Irmãs Zancanaro", SewingKnit},
    {"Confecções Nair e Filhas ME", "Nair e Filhas", SewingKnit},
    {"Facção Ribeirão do Meio Ltda.", "Ribeirão do Meio", SewingKnit},
    {"Costura Bom Jesus ME", "Bom Jesus", SewingKnit},
    {"Ateliê Conceição Malhas ME", "Conceição Malhas", SewingKnit},
    {"Facção Serra Alta Ltda.", "Serra Alta", SewingKnit},
    {"Camisaria Colarinho Ltda.", "Colarinho", SewingWoven},
    {"Facção Dona Ivete ME", "Dona Ivete", SewingWoven},
    {"Costura Linha Reta ME", "Linha Reta", SewingWoven},
    {"Ateliê Ângela Modas ME", "Ângela Modas", SewingWoven},
    {"Facção Cinco Bolsos Ltda.", "Cinco Bolsos", SewingJeans},
    {"Jeans & Pespontos ME", "Pespontos", SewingJeans},
    {"Facção Guabirubense de Jeans ME", "Guabirubense", SewingJeans},
    {"Costura Maré Alta ME", "Maré Alta", SewingBeach},
    {"Moda Praia Ilhota Confecções ME", "Praia Ilhota", SewingBeach},
    {"Caseado Expresso São João ME", "Caseado São João", Buttonhole},
    {"Lavanderia Industrial Águas do Vale Ltda.", "Águas do Vale", Laundry},
    {"Lavação Rio Limpo Ltda.", "Rio Limpo", Laundry},
    {"Tinturaria Matiz Ltda.", "Matiz", Dyeing},
    {"Facção Pé de Moleque ME", "Pé de Moleque", SewingKnit},
});

constexpr std::size_t preferredEvery = 3;
constexpr std::string_view uncertified = "Costura Bom Jesus ME";
constexpr std::string_view blocked = "Facção Pé de Moleque ME";

struct TShop {
    std::string_view name;
    std::string_view shortName;
    std::string_view group;
};

constexpr auto shops = std::to_array<TShop>({
    {"Magazine Avenida Central Ltda.", "Avenida Central", "0002"},
    {"Lojas Girassol do Oeste Ltda.", "Girassol", "0002"},
    {"Armarinho e Modas São Judas ME", "São Judas", "0002"},
    {"Comercial Três Fronteiras Ltda.", "Três Fronteiras", "0003"},
    {"Atacado Veste Bem Ltda.", "Veste Bem", "0003"},
    {"Casa do Uniforme Catarina Ltda.", "Casa do Uniforme", "0002"},
    {"Boutique Flor de Açucena ME", "Flor de Açucena", "0002"},
    {"Surf Shop Ponta das Canas Ltda.", "Ponta das Canas", "0002"},
    {"Rede Pequenos Passos Infantil Ltda.", "Pequenos Passos", "0003"},
    {"Distribuidora Sertão e Mar Ltda.", "Sertão e Mar", "0003"},
    {"Lojas Botão de Rosa Ltda.", "Botão de Rosa", "0002"},
    {"Magazine Estação Nova Ltda.", "Estação Nova", "0002"},
});

constexpr auto suppliers = std::to_array<std::string_view>({"Malharia Fio Nobre Ltda.", "Tecelagem Rio Morto Ltda.",
    "Aviamentos Casa da Linha Ltda.", "Etiquetas Ponto Alto Ltda.", "Embalagens Itoupava Ltda."});

constexpr auto firstNames = std::to_array<std::string_view>(
    {"Adriana", "Márcio", "Luzia", "Sérgio", "Ivone", "César", "Rosângela", "Antônio", "Inês", "Cláudia", "Josué",
        "Terezinha", "Fábio", "Conceição", "Élcio", "Marlene", "Valdir", "Patrícia", "Otávio", "Lourdes"});
constexpr auto lastNames = std::to_array<std::string_view>({"Schlindwein", "Zucchi", "da Conceição", "Pereira", "Bósio",
    "Gonçalves", "Kühl", "de Araújo", "Maçaneiro", "Tomio", "Simão", "Fernandes"});

struct TEmployee {
    std::string_view code;
    std::string_view name;
};

constexpr auto employees = std::to_array<TEmployee>({
    {"00000001", "Ana Beatriz Schmitt"},
    {"00000002", "Maria Aparecida Hoffmann"},
    {"00000003", "João Batista Furtado"},
    {"00000004", "Célia Regina Moser"},
    {"00000005", "Bruno César Dalmônico"},
    {"00000006", "Luís Fernando Bertoldi"},
    {"00000007", "Sônia Mara Tavares"},
    {"00000008", "Sebastião Gonçalves"},
    {"00000009", "Vânia Cristina Kreusch"},
    {"00000010", "Edílson Araújo"},
});

constexpr double standardDay = 528; ///< minutes: eight hours and forty-eight minutes, five days a week

struct TFinance {
    std::string_view group;
    std::string_view kind; ///< SITCLI
    std::string_view history;
    std::string_view account;
};

TFinance FinanceOf(demo::TTrade trade)
{
    switch (trade) {
    case Embroidery:
        return {"0001", "002", "0011", "3102"};
    case Printing:
        return {"0001", "003", "0011", "3102"};
    case Laundry:
    case Dyeing:
        return {"0001", "004", "0012", "3103"};
    case Buttonhole:
        return {"0001", "005", "0010", "3101"};
    default:
        return {"0001", "001", "0010", "3101"};
    }
}

/// Draws addresses; each has a postcode of its own, known in CADCEP.
class TAddressBook {
public:
    /// Postcodes end in numbers above `base`; two books must not overlap.
    TAddressBook(TOrvDatabase& database, TRandom random, int base)
        : postcodes_(database, "CADCEP", "CEP,COD_CID")
        , random_(random)
        , suffix_(base)
    {
    }

    struct TAddress {
        std::string street;
        std::string number;
        std::string district;
        std::string postcode;
        std::string city;
        std::string phone;
    };

    TAddress Next()
    {
        const TCity& city = random_.Pick(cities);
        suffix_ += 7;
        const std::string phone = Code(random_.Between(32000000, 33999999), 8);
        const TAddress address{std::string(random_.Pick(streets)), std::to_string(random_.Between(12, 2890)),
            std::string(random_.Pick(districts)), Code(city.postcode, 5) + "-" + Code(suffix_, 3),
            std::string(city.name), "(" + std::string(city.phone) + ") " + phone.substr(0, 4) + "-" + phone.substr(4)};
        postcodes_.Row({address.postcode, city.code});
        return address;
    }

private:
    TTableWriter postcodes_;
    TRandom random_;
    int suffix_;
};

/// The letter under the accent, for the second byte of an accented letter.
char BaseLetter(char byte)
{
    const int letter = (static_cast<unsigned char>(byte) & 0x1F);
    if (letter <= 0x06)
        return 'a';
    if (letter == 0x07)
        return 'c';
    if (letter <= 0x0B)
        return 'e';
    if (letter <= 0x0F)
        return 'i';
    return letter <= 0x16 ? 'o' : 'u';
}

/// The letters and digits of a name as a mail address has them.
std::string MailName(std::string_view name)
{
    constexpr char accented = '\xC3'; // the first byte of every accented letter of Portuguese
    std::string result;
    for (std::size_t at = 0; at < name.size(); ++at) {
        const char c = name[at];
        if (c >= 'A' && c <= 'Z')
            result += static_cast<char>(c - 'A' + 'a');
        else if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'))
            result += c;
        else if (c == accented && at + 1 < name.size())
            result += BaseLetter(name[++at]);
    }
    return result;
}

} // namespace

void TDemoFactory::FillPlaces()
{
    TTableWriter rows(database_, "CIDADE", "COD_CID,NOME_CID");
    for (const TCity& city : cities)
        rows.Row({city.code, city.name});

    TTableWriter carriers(database_, "TABTRAN", "CODIGO,NOME");
    carriers.Row({"00801", "Transportes Rota do Vale Ltda."});
    carriers.Row({"00802", "Expresso Catarinão de Cargas Ltda."});
    carriers.Row({"00803", "Retira na fábrica"});

    TTableWriter agents(database_, "REPRESEN", "CODREP,NOME");
    agents.Row({"00901", "Representações Müller & Irmão"});
    agents.Row({"00902", "Cícero Nóbrega Representações"});
    agents.Row({"00903", "Vendas da fábrica"});
}

void TDemoFactory::FillClientGroups()
{
    TTableWriter groups(database_, "GRUPO_CLI", "CODIGO,DESCRICAO");
    groups.Row({"0001", "Facções e beneficiadores"});
    groups.Row({"0002", "Lojistas"});
    groups.Row({"0003", "Atacadistas e redes"});
    groups.Row({"0004", "Fornecedores"});

    TTableWriter kinds(database_, "SITCLI", "CODIGO,DESCRICAO");
    kinds.Row({"001", "Costura"});
    kinds.Row({"002", "Bordado"});
    kinds.Row({"003", "Estamparia"});
    kinds.Row({"004", "Lavanderia e tinturaria"});
    kinds.Row({"005", "Caseado e acabamento"});
    kinds.Row({"009", "Fábrica"});
}

void TDemoFactory::FillFactory()
{
    TTableWriter(database_, "CADCEP", "CEP,COD_CID").Row({"88350-001", "4202909"});
    TTableWriter(database_, "ENTIDADE",
        "CODCLI,NOME,FANTASIA,CNPJ,ATIVO,BLOQUEIO,GRUPO,SIT_CLI,ENDERECO,NUM_END,BAIRRO,CEP,TELEFONE,EMAIL,CONSUMOS")
        .Row({demo::factoryCode, "Confecções Vale do Alinhavo Ltda.", "Vale do Alinhavo", Cnpj(81204517), "S", "N",
            "0001", "009", "Rua dos Teares", "1500", "Águas Claras", "88350-001", "(47) 3355-1500",
            "producao@valedoalinhavo.example", "S"});
}

void TDemoFactory::FillSubcontractors()
{
    TRandom random = Random("subcontractors");
    TAddressBook addresses(database_, Random("addresses of subcontractors"), 100);
    TTableWriter rows(database_, "ENTIDADE",
        "CODCLI,NOME,FANTASIA,CNPJ,ATIVO,BLOQUEIO,GRUPO,SIT_CLI,TABELA,TRANSPORTE,ENDERECO,NUM_END,BAIRRO,CEP,TELEFONE,"
        "EMAIL,CONDICAO,CLASSE,HISTORICO,SIT_DUP,BANCO,AGENCIA,CONTA,CONSUMOS,OBS_FINAN");
    TTableWriter contacts(database_, "CONTATO", "CODCLI,TIPO,EMAIL");
    for (std::size_t index = 0; index < workshops.size(); ++index) {
        const TWorkshop& workshop = workshops[index];
        const auto address = addresses.Next();
        const auto finance = FinanceOf(workshop.trade);
        TSubcontractor subcontractor;
        subcontractor.code = Code(101 + static_cast<int>(index), 5);
        subcontractor.name = workshop.name;
        subcontractor.city = address.city;
        subcontractor.trade = workshop.trade;
        subcontractor.preferred = index % preferredEvery == 0;
        subcontractor.blocked = workshop.name == blocked;
        subcontractor.certified = workshop.name != uncertified;
        const std::string mail = MailName(workshop.shortName) + ".example";
        const int account = random.Between(100000, 999999);
        rows.Row({subcontractor.code, workshop.name, workshop.shortName,
            Cnpj(10200300 + 137911 * static_cast<int>(index)), "S", subcontractor.blocked ? "S" : "N", finance.group,
            finance.kind, subcontractor.preferred ? TValue(demo::preferredPrices) : TValue(), "00803", address.street,
            address.number, address.district, address.postcode, address.phone, "producao@" + mail, random.Pick(dueDays),
            finance.account, finance.history, "002", Code(random.Between(901, 903), 3),
            Code(random.Between(101, 998), 4), Code(account / 10, 6) + "-" + std::to_string(account % 10), "S",
            subcontractor.blocked ? "Bloqueada: aguardando acerto das peças faltantes." : ""});
        contacts.Row({subcontractor.code, "1", "contato@" + mail});
        contacts.Row({subcontractor.code, "3", "financeiro@" + mail});
        subcontractors_.push_back(std::move(subcontractor));
    }
    summary_.subcontractors = rows.RowCount();
}

void TDemoFactory::FillClients()
{
    TRandom random = Random("clients");
    TAddressBook addresses(database_, Random("addresses of clients"), 400);
    TTableWriter rows(database_, "ENTIDADE",
        "CODCLI,NOME,FANTASIA,CNPJ,ATIVO,BLOQUEIO,GRUPO,CODREP,TRANSPORTE,ENDERECO,NUM_END,BAIRRO,CEP,TELEFONE,EMAIL,"
        "CONDICAO");
    for (std::size_t index = 0; index < shops.size(); ++index) {
        const TShop& shop = shops[index];
        const auto address = addresses.Next();
        const std::string code = Code(501 + static_cast<int>(index), 5);
        rows.Row({code, shop.name, shop.shortName, Cnpj(40700100 + 215377 * static_cast<int>(index)), "S", "N",
            shop.group, Code(random.Between(901, 903), 5), Code(random.Between(801, 802), 5), address.street,
            address.number, address.district, address.postcode, address.phone,
            "compras@" + MailName(shop.shortName) + ".example", "28  28/56/84 dias"});
        clients_.push_back(code);
    }
}

void TDemoFactory::FillSuppliers()
{
    TAddressBook addresses(database_, Random("addresses of suppliers"), 700);
    TTableWriter rows(database_, "ENTIDADE",
        "CODCLI,NOME,FANTASIA,CNPJ,ATIVO,BLOQUEIO,GRUPO,ENDERECO,NUM_END,BAIRRO,CEP,TELEFONE,CLASSE,HISTORICO");
    for (std::size_t index = 0; index < suppliers.size(); ++index) {
        const auto address = addresses.Next();
        rows.Row({Code(701 + static_cast<int>(index), 5), suppliers[index], suppliers[index],
            Cnpj(60800200 + 318211 * static_cast<int>(index)), "S", "N", "0004", address.street, address.number,
            address.district, address.postcode, address.phone, "3201", "0020"});
    }
}

void TDemoFactory::FillEmployees()
{
    TRandom random = Random("employees");
    TTableWriter rows(database_, "PESSOAL", "CODIGO,NOME,CODCLI,TEMPO_DIARIO");
    for (const TEmployee& employee : employees)
        rows.Row({employee.code, employee.name, nullptr, standardDay});

    int number = 100;
    for (const TSubcontractor& subcontractor : subcontractors_) {
        for (int count = random.Between(2, 4); count > 0; --count) {
            const std::string first(random.Pick(firstNames));
            const std::string last(random.Pick(lastNames));
            rows.Row(
                {Code(++number, 8), first + " " + last, subcontractor.code, standardDay - 48.0 * random.Between(0, 2)});
        }
    }
}

/// Children's clothes demand a certificate of whoever sews them; one subcontractor has let it expire.
void TDemoFactory::FillCertificates()
{
    TTableWriter kinds(database_, "CERTIFICADO", "CODIGO,DESCRICAO");
    kinds.Row({"SEGINF", "Segurança de vestuário infantil"});
    kinds.Row({"LICAMB", "Licença ambiental de operação"});

    TTableWriter demanded(database_, "PRODUTO_CERTIFICADO", "PRODUTO,CERTIFICADO");
    for (const TProduct& product : products_) {
        if (IsForChildren(*product.model))
            demanded.Row({product.model->code, "SEGINF"});
    }

    TTableWriter held(database_, "ENTIDADE_CERTIFICADO", "CODCLI,CERTIFICADO,DT_INICIO,DT_FIM");
    held.Row({demo::factoryCode, "SEGINF", today_.AddDays(-400), today_.AddDays(695)});
    held.Row({demo::factoryCode, "LICAMB", today_.AddDays(-700), today_.AddDays(760)});
    for (const TSubcontractor& subcontractor : subcontractors_) {
        const TDateTime until = subcontractor.certified ? today_.AddDays(500) : today_.AddDays(-20);
        held.Row({subcontractor.code, "SEGINF", until.AddDays(-730), until});
        if (subcontractor.trade == Laundry || subcontractor.trade == Dyeing || subcontractor.trade == Printing)
            held.Row({subcontractor.code, "LICAMB", today_.AddDays(-300), today_.AddDays(800)});
    }
}

} // namespace alinhavo
