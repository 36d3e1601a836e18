#pragma once

#include <cstddef>

#include "platform/sqlite/piece.h"
#include "platform/sqlite/schema.h"
#include "platform/sqlite/scopes.h"

namespace kvraedi::sqlite {

/// The pieces [begin, end) of an expression.
struct Stretch {
  std::size_t begin = 0;
  std::size_t end = 0;
  bool Empty() const { return begin >= end; }
};

/// Knows the expressions of a statement: how far they go and what they give. The arguments must
/// outlive it.
class Operands {
 public:
  Operands(const Pieces& pieces, const Scopes& scopes, Schema& schema)
      : pieces_(pieces), scopes_(scopes), schema_(schema) {}

  /// The expression that ends before, or starts after, the operator at `i`, up to the nearest
  /// comparison, comma, keyword or open parenthesis.
  Stretch Before(std::size_t i) const;
  Stretch After(std::size_t i) const;

  /// What an expression gives; kUnknown when that cannot be told.
  ColumnKind KindOf(Stretch stretch) const;

 private:
  bool EndsExpression(std::size_t i) const;
  ColumnKind KindOfGroup(Stretch stretch) const;
  ColumnKind KindOfCall(std::size_t open, std::size_t close) const;
  ColumnKind KindOfQuery(Stretch stretch) const;
  ColumnKind KindOfTerms(Stretch stretch) const;

  const Pieces& pieces_;
  const Scopes& scopes_;
  Schema& schema_;
};

/// Whether the piece at `i` is a comparison: "=", "<>", ...
bool IsComparison(const Pieces& pieces, std::size_t i);

}  // namespace kvraedi::sqlite
