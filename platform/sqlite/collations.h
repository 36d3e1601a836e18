#pragma once

#include <string_view>

struct sqlite3;

namespace kvraedi::sqlite {

/// Texts: without regard to case and trailing blanks; accents count. In order: letters by their
/// base letter, n before ñ before o, accents decide between equals.
inline constexpr std::string_view kTextCollation = "KVR_TEXTO";
/// Dates in any form that FechaHora reads.
inline constexpr std::string_view kDateCollation = "KVR_FECHA";
/// Texts that are plain numbers by their value ("0012" equals "12"), before all others, which
/// compare as texts.
inline constexpr std::string_view kNumberCollation = "KVR_NUMERO";

/// Each gives less than, equal to or more than 0.
int CompareTexts(std::string_view a, std::string_view b);
int CompareNumberTexts(std::string_view a, std::string_view b);
/// Whether the number collation takes `text` for a number.
bool IsPlainNumber(std::string_view text);

/// Whether a text has the form of a pattern of LIKE: "%" any characters, "_" one, the character
/// behind `escape` (0: none) itself. Without regard to case; accents count.
bool MatchesLike(std::string_view text, std::string_view pattern, char escape);

/// Where a comparison of dates leaves the text that is no date. A collation cannot fail, so the
/// connection looks here after each step.
struct DateFault {
  bool raised = false;
  char text[64] = {};
};
/// Texts that are no dates come last.
int CompareDates(std::string_view a, std::string_view b, DateFault* fault);

/// Whether `text` has the form "yyyy-mm-dd" or "yyyy-mm-dd hh:mm:ss", which is ordered as text.
bool IsCanonicalDate(std::string_view text);

/// `fault` may be null and must outlive the handle.
void AddCollations(sqlite3* db, DateFault* fault);

}  // namespace kvraedi::sqlite
