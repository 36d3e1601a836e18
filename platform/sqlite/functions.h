#pragma once

#include <functional>

#include "kvraedi/valor.h"

struct sqlite3;
struct sqlite3_stmt;

namespace kvraedi::sqlite {

struct Column;

/// Adds what SQLite lacks of T-SQL, and replaces ROUND:
///   ROUND(x [, n])   the 15 significant digits of x, halves away from zero
///   LEN(text)        characters without trailing blanks
///   kvr_ahora()      the clock's date and time, as FechaHora::ToIso writes it
///   kvr_fecha(text)  the same form of any date text; fails when it is none
///   kvr_dia(text)    the same without time
///   kvr_texto(x)     a number as text with 15 significant digits, a text as it is
///   kvr_guarda(x, c) what the column c, a parameter that BindColumn has bound, keeps of x; fails
///                    when x does not fit it
void AddFunctions(sqlite3* db, std::function<FechaHora()> clock);

/// Gives SQLite's result code. The column must outlive the statement's runs.
int BindColumn(sqlite3_stmt* statement, int index, const Column& column);

}  // namespace kvraedi::sqlite
