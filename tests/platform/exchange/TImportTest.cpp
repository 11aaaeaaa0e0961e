#include "TImportTest.h"

#include <fstream>

namespace alinhavo {

void TImportTest::SetUp()
{
    TDatabaseTest::SetUp();
    if (!db)
        return;
    Execute({
        {"INSERT INTO {PRODUTO} (CODIGO, DESCRICAO, ATIVO, PRECO) VALUES ('CAM01', 'Camisa', 'S', 10.5)"},
        {"INSERT INTO {PRODUTO} (CODIGO, DESCRICAO, ATIVO) VALUES ('CAL01', 'Calça', 'S')"},
        {"INSERT INTO {CADCOR} (COR, DESCRICAO) VALUES ('AZUL', 'Azul')"},
        {"INSERT INTO {CADCOR} (COR, DESCRICAO) VALUES ('VERDE', 'Verde')"},
        {"INSERT INTO {TABTAM} (TAM) VALUES ('M')"},
        {"INSERT INTO {TABTAM} (TAM) VALUES ('G')"},
        {"INSERT INTO {CADFLUXO} (CODIGO, DESCRICAO) VALUES ('10', 'Corte')"},
        {"INSERT INTO {CADFLUXO} (CODIGO, DESCRICAO) VALUES ('20', 'Costura')"},
        {"INSERT INTO {REGIAO} (REGIAO, DESCRICAO) VALUES ('001', 'Normal')"},
        {"INSERT INTO {TIPO_APL} (CODIGO, DESCRICAO) VALUES ('01', 'Corpo')"},
        {"INSERT INTO {ENTIDADE} (CODCLI, NOME) VALUES ('00001', 'Cliente')"},
        {"INSERT INTO {OF1} (NUMERO, CODIGO, CODCLI, FAC_QTDE) VALUES ('000001', 'CAM01', '00001', 'S')"},
        {"INSERT INTO {OF1} (NUMERO, CODIGO, CODCLI) VALUES ('000002', 'CAM01', '00001')"},
        {"INSERT INTO {OF_ITEN} (NUMERO, COR, TAM, QTDE) VALUES ('000001', 'AZUL', 'M', 10)"},
    });
}

void TImportTest::Execute(const std::vector<TStatement>& statements)
{
    for (const TStatement& statement : statements)
        db->ExecSQL(statement);
    db->CommitRetaining();
}

std::filesystem::path TImportTest::File(const std::string& content) const
{
    auto path = folder.Path() / "arquivo.csv";
    std::ofstream(path, std::ios::binary) << content;
    return path;
}

std::unique_ptr<IImport> TImportTest::Compare(
    std::string_view table, const std::string& content, TExistingRows existing)
{
    return TTableExchange(*db).Compare(*FindTable(table), File(content), existing);
}

TImportCounts TImportTest::Import(std::string_view table, const std::string& content, TExistingRows existing)
{
    const auto import = Compare(table, content, existing);
    import->Write();
    db->CommitRetaining();
    return import->Counts();
}

std::vector<std::string> TImportTest::Errors(std::string_view table, const std::string& content)
{
    std::vector<std::string> errors;
    const auto import = Compare(table, content);
    for (const TImportRemark& remark : import->Remarks()) {
        if (remark.state == TLineState::Wrong)
            errors.push_back(std::to_string(remark.line) + " " + remark.column + ": " + remark.reason);
    }
    return errors;
}

} // namespace alinhavo
