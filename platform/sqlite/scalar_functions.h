#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/sqlite/database.h"
#include "platform/sqlite/piece.h"

namespace kvraedi::sqlite {

/// Functions made by CREATE FUNCTION dbo.name(@p type, ...) RETURNS type AS BEGIN RETURN ... END.
/// Their text is kept in a table of the file. A call dbo.name(...) is replaced by the function's
/// expression, its parameters by the arguments, which must therefore be values or qualified
/// columns.
class ScalarFunctions {
 public:
  explicit ScalarFunctions(Database& database) : database_(database) { Load(); }

  /// Reads the functions that the file holds.
  void Load();

  /// Runs CREATE [OR ALTER] FUNCTION and ALTER FUNCTION.
  void Define(std::string_view sql);
  /// Runs DROP FUNCTION [IF EXISTS] name.
  void Drop(std::string_view sql);

  void Inline(Pieces& pieces) const;

 private:
  struct Function {
    std::string name;                     // folded
    std::string text;                     // the statement; the body points into it
    std::vector<std::string> parameters;  // folded, with their @
    Pieces body;
    std::deque<std::string> renamed;  // aliases that the body points to
  };

  using FunctionPtr = std::unique_ptr<Function>;

  static FunctionPtr Parse(std::string_view sql);
  static void RenameAliases(Function& function);
  Pieces Expand(const Pieces& pieces, int depth) const;
  Pieces Call(const std::string& name, const std::vector<Pieces>& arguments, int depth) const;

  Database& database_;
  std::unordered_map<std::string, FunctionPtr> functions_;  // by folded name
};

}  // namespace kvraedi::sqlite
