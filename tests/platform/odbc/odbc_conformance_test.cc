#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/odbc/odbc_connection.h"
#include "tests/platform/conexion/connection_conformance.h"

namespace kvraedi::conformance {
namespace {

using Faltas = std::map<std::string, std::string>;

Faltas Por(const std::string& motivo, const std::vector<std::string>& pruebas) {
  Faltas faltas;
  for (const std::string& prueba : pruebas) faltas[prueba] = motivo;
  return faltas;
}

Faltas Juntas(std::vector<Faltas> todas) {
  Faltas juntas;
  for (Faltas& faltas : todas) juntas.merge(faltas);
  return juntas;
}

/// SQLite takes the definitions of the tests but for these words.
class SobreSqlite : public ConnectionWrapper {
 public:
  SobreSqlite() : ConnectionWrapper(Abrir()) {}

  std::int64_t Execute(std::string_view sql) override {
    std::string texto(sql);
    for (const auto& [palabra, otra] :
         {std::pair<std::string, const char*>{"[int] IDENTITY(1,1)",
                                              "INTEGER PRIMARY KEY AUTOINCREMENT"},
          {"(MAX)", ""}}) {
      const auto lugar = texto.find(palabra);
      if (lugar != std::string::npos) texto.replace(lugar, palabra.size(), otra);
    }
    return Target().Execute(texto);
  }

 private:
  static std::shared_ptr<Connection> Abrir() {
    OdbcOptions opciones;
    opciones.transact_sql = false;
    return std::make_shared<OdbcConnection>("Driver={SQLite3};Database=:memory:", opciones);
  }
};

Adapter Sqlite() {
  return {"ODBC/SQLite", [] { return std::make_unique<SobreSqlite>(); },
          Juntas({Por("SQLite keeps dates as texts and compares them so",
                      {"DatesAreOrderedAndReadAsDates", "DatesCompareInEveryForm",
                       "ImpossibleDatesAreErrorsOnAnEmptyTable", "ColumnsOfOneNameAreToldApart",
                       "TheErrorNamesTheImpossibleDate"}),
                  Por("SQLite compares and orders texts byte by byte",
                      {"TextsKeepEveryCharacter", "TextsCompareWithoutCaseAndTrailingBlanks",
                       "GroupsFollowTheSameComparison", "TextsAreOrderedAsInSpanish",
                       "FullOuterJoinsFindWhatHasNoPartner"}),
                  Por("SQLite has no exact decimals and no types that refuse a value",
                      {"ATextThatIsNoNumberIsNotComparedWithOne", "ColumnsTakeWhatFitsThem",
                       "DatesFitTheirColumn", "LongNumbersKeepTheirDigitsEverywhere",
                       "MoneyIsExactToFourDecimals", "NumbersFindTextsByValue",
                       "NumbersStoredInTextsKeepTheirDigits", "TextsStoredInNumbersBecomeNumbers",
                       "RejectedStatementsChangeNothing", "RoundTakesHalvesAwayFromZero",
                       "WhatACopyDoesNotFitIsRefused"}),
                  Por("SQLite does not take these words of T-SQL",
                      {"AnEmptyBlobEqualsAnEmptyText", "ConversionsGiveTheTypeAskedFor",
                       "ErrorsAreSpanish", "SettingsAreHonouredOrRefused", "IdentityIsGivenBack",
                       "IntegersAreChecked", "TemporaryTablesComeAndGo", "TextsAreJoinedWithPlus",
                       "TheClockIsThePorts", "TopTakesTheFirstRows"}),
                  Por("the change of the first row is T-SQL",
                      {"BlobsGoIntoTheFirstRow", "BlobsNeedARowAndAField"})})};
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Sqlite, ConnectionConformance, testing::Values(Sqlite()));

}  // namespace kvraedi::conformance
