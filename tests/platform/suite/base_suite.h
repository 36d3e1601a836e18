#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "host/demo/esquema.h"
#include "platform/sqlite/sqlite_connection.h"
#include "platform/suite/empresa_suite.h"
#include "tests/apoyo/fallos.h"

namespace kvraedi {

/// A database in memory with two companies: 7 uses the customer file of 1.
class BaseSuite : public ::testing::Test {
 protected:
  BaseSuite() {
    SqliteOptions options;
    options.durability = Durability::kNone;
    db = std::make_shared<SqliteConnection>(":memory:", options);
    db->Run(demo::kEsquema);
    for (const char* values : {"(1, 'Una', 1, 1, 1, 0)", "(7, 'Otra', 3, 1, 2, 1)"}) {
      db->Execute(std::string("INSERT INTO Empresas (Codigo, Nombre_1, Emp_Articulos,"
                              " Emp_Clientes, Emp_Proveedores, Aplica_IGIC) VALUES ") +
                  values);
    }
    db->Execute("INSERT INTO Impuestos (Codigo, Nombre, Porcentaje) VALUES (3, 'General', 7)");
    db->Execute("INSERT INTO Impuestos (Codigo, Nombre, Porcentaje) VALUES (4, 'Alto', 9.5)");
  }

  std::shared_ptr<SqliteConnection> db;
};

}  // namespace kvraedi
