#pragma once

#include "forms/TValue.h"
#include "host/TStatement.h"

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

class TDataSet;
class TEdit;
class TForm;
class TMemTable;
class TOrvQuery;

/// What an audit line records.
enum class TOperacaoLog { Inclusao = 0, Alteracao = 1, Exclusao = 2, Processo = 3, Financeiro = 6 };

/// Kinds of files attached to a code.
enum class TTipo { Estampa = 2, Medidas = 6, Produto = 7, Produto2 = 10 };

/// Rights asked by `Acessa`.
enum class TDireito : char { Altera = 'A', Exclui = 'E', Consulta = 'C' };
enum class TNivel : char { Usuario = '0', Supervisor = '1' };

/// Which rows of an order's technical sheet are wanted; an empty text does not restrict.
struct TFiltroPCPFTOF {
    std::string_view numero;
    std::string_view setor = {};
    std::string_view parte = {};
    std::string_view grupo = {}; ///< a group of materials
};

/// The columns of a dataset that an inventory line is made of; an empty name leaves that part of the line empty.
struct TColunasInventario {
    std::string_view produto;
    std::string_view cor;
    std::string_view tam;
    std::string_view numero;
    std::string_view lote;
    std::string_view descricao;
    std::string_view unidade;
    std::string_view codcli;
    std::string_view quantidade;
    std::string_view preco;
    std::string_view posse;
    std::string_view parte;
};

/// The host's library of shared functions. Database errors surface as EDatabaseError; a refusal is a result.
///
/// Keys and values are texts as the screens compose them: values already quoted by `Aspas`, or bare numbers, separated by
/// commas (`Existe`) or semicolons (`Busca_Valor`). They are parsed, never pasted: a text that is no such list raises
/// EDatabaseError (Syntax). Several values may also be given one by one.
class TFuncoes {
public:
    virtual ~TFuncoes() = default;

    // Single rows
    /// True when `table` has a row whose comma-separated `columns` equal the values, in that order.
    bool Existe(std::string_view table, std::string_view columns, const auto&... values)
    {
        return ExisteLinha(table, columns, Join(',', values...));
    }
    /// `column` of the first row whose semicolon-separated `keyColumns` equal the values; null when there is none.
    TValue Busca_Valor(
        std::string_view table, std::string_view keyColumns, std::string_view column, const auto&... values)
    {
        return BuscaColuna(table, keyColumns, column, Join(';', values...));
    }
    /// The next free code of a column, as text padded with zeros to `width`: the largest number there plus one. Not
    /// reserved: the loser of a race is refused by the key.
    virtual std::string Proximo(std::string_view table, std::string_view column, int width) = 0;
    /// The next free MOV of order, destination sector and part in FACCAO: the largest plus one, "1" when there is none.
    virtual std::string Proximo_FacMov(std::string_view numero, std::string_view setor, std::string_view parte) = 0;

    // Parameters, files, settings
    /// "" when not set. FAC70 is ("FAC", 70).
    virtual std::string BuscaParametro(std::string_view group, int number) = 0;
    /// A value of the configuration; "" when not set. Section "Caminho", key "path" is the root of shared files.
    virtual std::string LeIni(std::string_view section, std::string_view key) = 0;
    /// The user's own setting, kept in the database.
    virtual std::string LeAjuste(std::string_view section, std::string_view key, std::string_view otherwise) = 0;
    virtual void GravaAjuste(std::string_view section, std::string_view key, std::string_view value) = 0;
    /// Full path of the file attached to a code; "" when there is none.
    virtual std::string BuscaArquivo(std::string_view code, TTipo kind) = 0;
    /// The folder in which picking files begins.
    virtual std::string PastaPadrao() = 0;

    // Users, rights, audit
    virtual std::string vUsuario() const = 0; ///< name
    virtual std::string vUsuarioCodigo() const = 0; ///< code
    /// True when the user may go on; when false the user has been told already. Level Supervisor asks for a
    /// supervisor's name and password on top of `screen`.
    virtual bool Acessa(TForm& screen, std::string_view screenClass, TDireito right, TNivel level) = 0;
    /// One audit line with user and hour, in the shared transaction.
    virtual void GeraLog(std::string_view module, std::string_view text, TOperacaoLog operation, std::string_view key)
        = 0;
    /// Runs the log viewer on the lines of module and key, an empty one not restricting.
    virtual void AcessaLog(TForm& screen, std::string_view module, std::string_view key) = 0;

    // Production
    /// The date foreseen for the return of the order's part from the sector: its lead time (PCP_MOV.DIAS of the plan
    /// when there is one, else CADFLUXO.DIAS) counted in the sector's working days. A blank date stays blank.
    virtual TDateTime CalculaPrevRetorno(
        TDateTime date, std::string_view setor, std::string_view parte, std::string_view numero)
        = 0;
    /// Unit price of a pending quantity, to three decimals: the first price above zero in the table of the order's type,
    /// of the order, of the subcontractor, the default one; 0 when none has it. Prices of a colour and size count when
    /// they are kept so (FAC270).
    virtual double GeraPreco(std::string_view numero, std::string_view codigo, std::string_view op,
        std::string_view parte, std::string_view codcli, std::string_view cor, std::string_view tam, double quantidade)
        = 0;
    /// True when the subcontractor holds, at that date, every certificate that the product demands; otherwise `mensagem`
    /// lists what is missing, one per line.
    virtual bool ValidaCertificados(
        std::string_view produto, std::string_view faccao, TDateTime date, std::string& mensagem, std::string_view tipo)
        = 0;
    /// Opens the query on the technical sheet of an order (PCPFTOF), one row per input, colour and size of the piece:
    /// TIPO, INSUMO, DESCRICAO, UNIDADE, GRUPO, COR, TAM, PARTE, SETOR, COR_I, DESCCOR_I, SITUACAO, FAIXA, CONSUMO,
    /// CONSUMO_TOTAL (of the whole order), QTDE_BAI and QTDE_BAI_PROD (taken out of stock for the order, as material and
    /// as product), QTDE_BAI_SUBS and QTDE_BAI_SUBS_PROD (the same of the input that this one replaces), QTDE_EST and
    /// QTDE_EST_PROD (in stock).
    virtual void CarregaPCPFTOF(const TFiltroPCPFTOF& filtro, TOrvQuery& query) = 0;
    /// Turns the dataset's visible rows into inventory lines of today and commits them. Lines of today for the same
    /// product, colour, size, order, part and client are replaced.
    virtual void GeraInventario(const TColunasInventario& colunas, TDataSet& rows) = 0;

protected:
    virtual bool ExisteLinha(std::string_view table, std::string_view columns, std::string_view values) = 0;
    virtual TValue BuscaColuna(
        std::string_view table, std::string_view keyColumns, std::string_view column, std::string_view values)
        = 0;

private:
    static std::string Join(char separator, const auto&... values)
    {
        std::string list;
        ((list += list.empty() ? std::string(values) : separator + std::string(values)), ...);
        return list;
    }
};

} // namespace alinhavo
