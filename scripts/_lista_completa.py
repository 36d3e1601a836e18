"""Checks that a list of invoices holds every invoice and ticket invoice of company 1.

Usage: _lista_completa.py DATABASE LIST.json
"""

import json
import sqlite3
import sys

KEY = ("tipo_num", "ejercicio", "serie", "factura", "tipo_doc",
       "almacen_ft", "caja_ft", "fecha_ft", "codigo_ft")


def listed(path):
    """Number of different documents; the list has one row a line."""
    keys = set()
    with open(path, encoding="utf-8") as rows:
        for line in rows:
            if line.strip() not in ("[", "]"):
                row = json.loads(line.strip().rstrip(","))
                keys.add("/".join(row[name] for name in KEY))
    return len(keys)


def stored(path):
    database = sqlite3.connect(f"file:{path}?mode=ro", uri=True)
    return sum(
        database.execute(f"SELECT COUNT(*) FROM {table} WHERE Cod_Empresa = 1").fetchone()[0]
        for table in ("Facturas", "TPV_Tickets_Factura")
    )


def main(database, lista):
    in_list, in_database = listed(lista), stored(database)
    print(f"{in_list} documentos en la lista, {in_database} en la base de datos")
    return 0 if in_list == in_database > 0 else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
