#!/usr/bin/env python3
"""Writes examples/AccessDemo/AccessDemo.mdb, the database of the Order Book
application: its four tables with a few rows each, the descriptions and
captions of tables and fields, and the two queries, in an Access 2000 (Jet 4)
file of 4 KB pages.

What is written:
  page 0   the database header
  page 1   the usage maps of every table (which pages hold its rows)
  page 2   the definition of MSysObjects, the catalog of the database
  page 3.. the definitions of MSysQueries, MSysRelationships and the user tables
  then     the data pages of each table: the catalog rows (with the
           properties of each object in LvProp), the rows of MSysQueries
           that make up the queries, the relationships of the tables, and
           the rows of the user tables.

Long values (memo, OLE) are kept inside their rows, so there are no LVAL
pages, and the tables have no indexes. The bytes depend on nothing but this
script: the same file on every run.

Standard library only, written from the file format alone.
Usage: make-access-mdb.py [TARGET.mdb]"""

import struct
import sys
from datetime import datetime
from pathlib import Path

PAGE_SIZE = 4096

# Column types
BOOL, BYTE, INT, LONG, MONEY, SINGLE, DOUBLE, DATETIME, BINARY, TEXT, OLE, MEMO = (
    0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08, 0x09, 0x0A, 0x0B, 0x0C)
FIXED_SIZES = {BOOL: 0, BYTE: 1, INT: 2, LONG: 4, MONEY: 8, SINGLE: 4, DOUBLE: 8, DATETIME: 8}

# Column flags
FIXED_LENGTH = 0x01
UPDATABLE = 0x02

# Catalog object types and flags
TYPE_TABLE, TYPE_CONTAINER, TYPE_QUERY, TYPE_RELATIONSHIP = 1, 3, 5, 8
SYSTEM_OBJECT = -0x80000000  # a signed Long, as Access shows it

# Jet keeps the dates as days since 30 December 1899.
CREATED = datetime(2024, 3, 1, 9, 30)
SORT_GENERAL = 0x0409


def u16(value):
    return struct.pack("<H", value)


def u32(value):
    return struct.pack("<I", value)


def ucs2(text):
    return text.encode("utf-16-le")


def ole_date(moment):
    delta = moment - datetime(1899, 12, 30)
    return delta.days + delta.seconds / 86400


def pg_row(page, row):
    """A pointer to a row: the page in the upper three bytes, the row in the lowest."""
    return page << 8 | row


# --- the application -------------------------------------------------------

class Column:
    def __init__(self, name, kind, length=0, required=False, description="", caption=""):
        self.name = name
        self.kind = kind
        self.length = length  # characters of a Text column
        self.required = required
        self.description = description
        self.caption = caption

    @property
    def fixed(self):
        return self.kind in FIXED_SIZES

    @property
    def size(self):
        """The size in the definition: bytes of a fixed column, at most bytes of a variable one."""
        if self.fixed:
            return FIXED_SIZES[self.kind]
        if self.kind == TEXT:
            return self.length * 2
        if self.kind == BINARY:
            return 255
        return 0


class Table:
    def __init__(self, name, columns, rows=(), description="", system=False):
        self.name = name
        self.columns = columns
        self.rows = list(rows)
        self.description = description
        self.system = system
        self.page = 0  # of its definition

    @property
    def variable_columns(self):
        return [column for column in self.columns if not column.fixed]


class Query:
    def __init__(self, name, rows, description=""):
        self.name = name
        self.rows = rows  # (Attribute, Expression, Flag, Name1, Name2) in MSysQueries
        self.description = description
        self.id = 0


def d(year, month, day):
    return datetime(year, month, day)


def user_tables():
    customers = Table("Customers", [
        Column("CustomerID", LONG, required=True, description="The number given to the customer when it was entered."),
        Column("CompanyName", TEXT, 80, required=True, description="The name invoices are made out to.",
               caption="Company"),
        Column("ContactName", TEXT, 60, caption="Contact"),
        Column("Street", TEXT, 80),
        Column("City", TEXT, 40),
        Column("Country", TEXT, 40),
        Column("Phone", TEXT, 24),
        Column("CreditLimit", MONEY,
               description="The most the customer may owe before new orders wait for payment.",
               caption="Credit limit"),
        Column("Active", BOOL, required=True),
    ], [
        (1, "Harbour Lights Trading", "Ann Marsh", "12 Quay Street", "Bristol", "United Kingdom", "0117 496 0123",
         5000, True),
        (2, "Nordlicht Werkzeuge GmbH", "Jens Ahrens", "Hafenstraße 8", "Kiel", "Germany", "0431 555 210", 12000,
         True),
        (3, "Maison Rivière", "Claire Dubois", "4 rue des Tanneurs", "Lyon", "France", None, 2500, False),
    ], description="The companies that order from us, with their addresses and credit limits.")

    products = Table("Products", [
        Column("ProductID", LONG, required=True),
        Column("ProductName", TEXT, 80, required=True, caption="Product"),
        Column("UnitPrice", MONEY, caption="Unit price"),
        Column("UnitsInStock", INT, caption="In stock"),
        Column("Discontinued", BOOL, required=True),
    ], [
        (1, "Brass hinge, 75 mm", 2.40, 1200, False),
        (2, "Oak shelf bracket", 6.95, 340, False),
        (3, "Cast iron door knocker", 38.50, 0, True),
    ], description="Everything we sell, with its price and stock.")

    orders = Table("Orders", [
        Column("OrderID", LONG, required=True),
        Column("CustomerID", LONG, required=True),
        Column("OrderDate", DATETIME, required=True, caption="Ordered"),
        Column("ShippedDate", DATETIME, description="Empty until the goods have left the warehouse.",
               caption="Shipped"),
        Column("ShipVia", TEXT, 20, caption="Ship via"),
    ], [
        (1001, 1, d(2024, 2, 5), d(2024, 2, 7), "Road"),
        (1002, 2, d(2024, 2, 19), None, "Sea"),
        (1003, 1, d(2024, 3, 4), None, None),
        (1004, 3, d(2024, 1, 22), d(2024, 1, 25), "Air"),
    ], description="One row per order, the lines of each in Order Lines.")

    lines = Table("Order Lines", [
        Column("OrderID", LONG, required=True),
        Column("ProductID", LONG, required=True),
        Column("Quantity", INT, required=True),
        Column("UnitPrice", MONEY, required=True, caption="Price agreed"),
        Column("Discount", SINGLE),
    ], [
        (1001, 1, 100, 2.40, 0.0),
        (1001, 2, 20, 6.95, 0.125),
        (1002, 2, 50, 6.50, 0.25),
        (1002, 3, 2, 38.50, None),
        (1003, 1, 250, 2.30, 0.0),
        (1004, 3, 1, 38.50, 0.0),
    ], description="The products of each order, with the price agreed.")
    return [customers, products, orders, lines]


def queries():
    """The queries as Access keeps them: a row per part of the statement
    (0 its kind, 3 its options, 5 a table read, 6 an output column, 7 a join,
    8 the condition, 9 a grouping, 255 the end)."""
    open_orders = Query("qryOpenOrders", [
        (0, None, 1, None, None),
        (3, None, 0, None, None),
        (5, None, 0, "Orders", None),
        (5, None, 0, "Customers", None),
        (6, "Orders.OrderID", 0, None, None),
        (6, "Orders.OrderDate", 0, None, None),
        (6, "Customers.CompanyName", 0, None, None),
        (6, "Customers.City", 0, None, None),
        (7, "Customers.CustomerID = Orders.CustomerID", 1, "Customers", "Orders"),
        (8, "(((Orders.ShippedDate) Is Null))", 0, None, None),
        (255, None, 0, None, None),
    ], description="The orders not shipped yet, oldest first, with the customer to ship to.")
    totals = Query("qryOrderTotals", [
        (0, None, 1, None, None),
        (3, None, 0, None, None),
        (5, None, 0, "Order Lines", None),
        (6, "[Order Lines].OrderID", 0, None, None),
        (6, "Sum([Quantity]*[UnitPrice]*(1-[Discount]))", 0, "Total", None),
        (6, "Count(*)", 0, "Lines", None),
        (9, "[Order Lines].OrderID", 0, None, None),
        (255, None, 0, None, None),
    ])
    return [open_orders, totals]


def msys_objects():
    return Table("MSysObjects", [
        Column("Connect", MEMO),
        Column("Database", MEMO),
        Column("DateCreate", DATETIME),
        Column("DateUpdate", DATETIME),
        Column("Flags", LONG),
        Column("ForeignName", TEXT, 255),
        Column("Id", LONG),
        Column("Lv", OLE),
        Column("LvExtra", OLE),
        Column("LvModule", OLE),
        Column("LvProp", OLE),
        Column("Name", TEXT, 255),
        Column("Owner", BINARY),
        Column("ParentId", LONG),
        Column("RmtInfoLong", OLE),
        Column("RmtInfoShort", BINARY),
        Column("Type", INT),
    ], system=True)


def msys_queries():
    return Table("MSysQueries", [
        Column("Attribute", BYTE),
        Column("Expression", MEMO),
        Column("Flag", INT),
        Column("LvExtra", OLE),
        Column("Name1", TEXT, 255),
        Column("Name2", TEXT, 255),
        Column("ObjectId", LONG),
        Column("Order", BINARY),
    ], system=True)


def msys_relationships():
    """The relationships of the tables; integrity is not enforced (grbit 2),
    for which Access would want indexes."""
    links = [
        ("CustomersOrders", "Orders", "CustomerID", "Customers", "CustomerID"),
        ("OrdersOrder Lines", "Order Lines", "OrderID", "Orders", "OrderID"),
        ("ProductsOrder Lines", "Order Lines", "ProductID", "Products", "ProductID"),
    ]
    return Table("MSysRelationships", [
        Column("ccolumn", LONG),
        Column("grbit", LONG),
        Column("icolumn", LONG),
        Column("szColumn", TEXT, 64),
        Column("szObject", TEXT, 64),
        Column("szReferencedColumn", TEXT, 64),
        Column("szReferencedObject", TEXT, 64),
        Column("szRelationship", TEXT, 64),
    ], [(1, 2, 0, column, table, referenced_column, referenced, name)
        for name, table, column, referenced, referenced_column in links], system=True)


# --- properties (LvProp) ---------------------------------------------------

def property_entry(name_index, kind, value):
    return u16(8 + len(value)) + bytes([0, kind]) + u16(name_index) + u16(len(value)) + value


def property_chunk(chunk_type, body):
    return u32(6 + len(body)) + u16(chunk_type) + body


def properties_blob(own, by_column):
    """The properties of an object: a chunk naming every property, one chunk
    with the object's own (unnamed) and one per column that has any. Each
    property is (name, type, value bytes)."""
    blocks = [(0x00, "", own)] + [(0x01, column, props) for column, props in by_column]
    names = []
    for _, _, props in blocks:
        for name, _, _ in props:
            if name not in names:
                names.append(name)
    chunks = [property_chunk(0x80, b"".join(u16(len(ucs2(n))) + ucs2(n) for n in names))]
    for chunk_type, block_name, props in blocks:
        if chunk_type == 0x01 and not props:
            continue
        entries = b"".join(property_entry(names.index(n), kind, value) for n, kind, value in props)
        head = u16(len(ucs2(block_name))) + ucs2(block_name)
        chunks.append(property_chunk(chunk_type, u32(4 + len(head) + len(entries)) + head + entries))
    return b"MR2\0" + b"".join(chunks)


def text_property(name, text, kind=MEMO):
    return (name, kind, ucs2(text))


def table_properties(table):
    own = [text_property("Description", table.description)] if table.description else []
    by_column = []
    for column in table.columns:
        props = []
        if column.caption:
            props.append(text_property("Caption", column.caption, TEXT))
        if column.description:
            props.append(text_property("Description", column.description))
        if column.required and column.kind != BOOL:
            props.append(("Required", BOOL, b"\xff"))
        by_column.append((column.name, props))
    return properties_blob(own, by_column)


def query_properties(query):
    own = [("ReturnsRecords", BOOL, b"\xff"), ("ODBCTimeout", INT, u16(60))]
    if query.description:
        own.append(text_property("Description", query.description))
    return properties_blob(own, [])


# --- rows ------------------------------------------------------------------

def long_value(data):
    """A memo or OLE value kept in its row: its length flagged 'inline', then the bytes."""
    return u32(len(data) | 0x80000000) + u32(0) + u32(0) + data


def encode(column, value):
    kind = column.kind
    if kind == BYTE:
        return bytes([value])
    if kind == INT:
        return struct.pack("<h", value)
    if kind == LONG:
        return struct.pack("<i", value)
    if kind == MONEY:
        return struct.pack("<q", round(value * 10000))
    if kind == SINGLE:
        return struct.pack("<f", value)
    if kind == DOUBLE:
        return struct.pack("<d", value)
    if kind == DATETIME:
        return struct.pack("<d", ole_date(value))
    if kind == TEXT:
        return ucs2(value)
    if kind == MEMO:
        return long_value(ucs2(value))
    if kind == OLE:
        return long_value(value)
    if kind == BINARY:
        return bytes(value)
    raise ValueError(f"no encoding for column type {kind}")


def fixed_offsets(table):
    offsets, at = {}, 0
    for column in table.columns:
        if column.fixed and column.kind != BOOL:
            offsets[column.name] = at
            at += column.size
    return offsets, at


def row_bytes(table, values):
    """A row: the column count, the fixed columns, the variable ones, then
    (read from the end) the null mask, the count of variable columns and
    their offsets, last one first, after the offset where they end."""
    offsets, fixed_size = fixed_offsets(table)
    fixed = bytearray(fixed_size)
    variable = []
    mask = bytearray((len(table.columns) + 7) // 8)
    for number, (column, value) in enumerate(zip(table.columns, values, strict=True)):
        present = bool(value) if column.kind == BOOL else value is not None
        if present:
            mask[number // 8] |= 1 << (number % 8)
        if column.kind == BOOL:
            continue
        data = encode(column, value) if value is not None else b""
        if column.fixed:
            fixed[offsets[column.name]:offsets[column.name] + len(data)] = data
        else:
            variable.append(data)
    row = bytearray(u16(len(table.columns)) + fixed)
    if table.variable_columns:
        starts = []
        for data in variable:
            starts.append(len(row))
            row += data
        end = len(row)
        row += u16(end) + b"".join(u16(start) for start in reversed(starts)) + u16(len(variable))
    return bytes(row + mask)


# --- pages -----------------------------------------------------------------

DATA_HEADER = 14  # type, 1, free space, owner, 4 unknown, row count


def data_pages(owner, rows):
    """Rows packed into data pages of the table defined at page owner, each
    page's rows stored from its end towards its offset table."""
    pages, batch, used = [], [], DATA_HEADER
    for row in rows:
        if DATA_HEADER + 2 + len(row) > PAGE_SIZE:
            raise ValueError("a row does not fit on a page")
        if used + 2 + len(row) > PAGE_SIZE:
            pages.append(data_page(owner, batch))
            batch, used = [], DATA_HEADER
        batch.append(row)
        used += 2 + len(row)
    if batch:
        pages.append(data_page(owner, batch))
    return pages


def data_page(owner, rows):
    page = bytearray(PAGE_SIZE)
    end = PAGE_SIZE
    for number, row in enumerate(rows):
        start = end - len(row)
        page[start:end] = row
        page[DATA_HEADER + 2 * number:DATA_HEADER + 2 * number + 2] = u16(start)
        end = start
    free = end - (DATA_HEADER + 2 * len(rows))
    page[0:14] = bytes([0x01, 0x01]) + u16(free) + u32(owner) + u32(0) + u16(len(rows))
    return bytes(page)


USAGE_MAP_SIZE = 64


def usage_map(pages):
    """A map of type 0: the first page it covers, then a bit per page."""
    bitmap = bytearray(USAGE_MAP_SIZE - 5)
    for page in pages:
        bitmap[page // 8] |= 1 << (page % 8)
    return b"\x00" + u32(0) + bytes(bitmap)


def column_descriptor(number, column, fixed_offset, variable_index):
    flags = UPDATABLE | (FIXED_LENGTH if column.fixed else 0)
    sort = SORT_GENERAL if column.kind in (TEXT, MEMO) else 0
    return (bytes([column.kind]) + u32(0) + u16(number) + u16(variable_index) + u16(number)
            + u16(sort) + u16(0) + bytes([flags, 0]) + u32(0) + u16(fixed_offset) + u16(column.size))


def table_definition_page(table, row_count, used_map, free_map):
    """The definition of a table: counts, where its usage maps are, then a
    descriptor and a name per column. No indexes."""
    offsets, _ = fixed_offsets(table)
    descriptors, names, variable_index = b"", b"", 0
    for number, column in enumerate(table.columns):
        if column.fixed:
            descriptors += column_descriptor(number, column, offsets.get(column.name, 0), 0)
        else:
            descriptors += column_descriptor(number, column, 0, variable_index)
            variable_index += 1
        names += u16(len(ucs2(column.name))) + ucs2(column.name)
    columns = len(table.columns)
    # The length (filled in below), 4 unknown bytes, the row count, the next
    # autonumber and its flag, the autonumber of complex columns, 8 unknown bytes.
    head = (u32(0) + u32(0) + u32(row_count) + u32(0) + bytes([1, 0, 0, 0]) + u32(0) + bytes(8)
            + bytes([0x53 if table.system else 0x4E]) + u16(columns) + u16(len(table.variable_columns))
            + u16(columns) + u32(0) + u32(0) + u32(used_map) + u32(free_map))
    assert len(head) == 55
    # No columns own long value pages: the list of them is just its end.
    definition = head + descriptors + names + u16(0xFFFF)
    if 8 + len(definition) > PAGE_SIZE:
        raise ValueError(f"the definition of {table.name} does not fit on a page")
    page = bytearray(PAGE_SIZE)
    page[0:8] = bytes([0x02, 0x01]) + u16(PAGE_SIZE - 8 - len(definition)) + u32(0)
    page[8:8 + len(definition)] = definition
    page[8:12] = u32(len(definition))
    return bytes(page)


def rc4(key, data):
    state = list(range(256))
    j = 0
    for i in range(256):
        j = (j + state[i] + key[i % len(key)]) % 256
        state[i], state[j] = state[j], state[i]
    out, i, j = bytearray(), 0, 0
    for byte in data:
        i = (i + 1) % 256
        j = (j + state[i]) % 256
        state[i], state[j] = state[j], state[i]
        out.append(byte ^ state[(state[i] + state[j]) % 256])
    return bytes(out)


HEADER_KEY = bytes([0xC7, 0xDA, 0x39, 0x6B])


def header_page():
    """Page 0: the signature and Jet version, then 128 bytes scrambled with a
    fixed RC4 key holding the code page, the database key (0: pages are not
    encoded), the sort order and the creation date."""
    page = bytearray(PAGE_SIZE)
    page[0:4] = bytes([0x00, 0x01, 0x00, 0x00])
    page[4:20] = b"Standard Jet DB\0"
    page[0x14:0x18] = u32(1)  # Jet 4
    page[0x3C:0x3E] = u16(1252)
    page[0x3E:0x42] = u32(0)
    page[0x6E:0x70] = u16(SORT_GENERAL)
    page[0x72:0x7A] = struct.pack("<d", ole_date(CREATED))
    page[0x18:0x98] = rc4(HEADER_KEY, page[0x18:0x98])
    return bytes(page)


# --- the catalog -----------------------------------------------------------

CONTAINER_ID = 0x0F000000


def catalog_row(name, kind, object_id, parent, flags=0, properties=None):
    """A row of MSysObjects, in its columns' order."""
    created = CREATED
    return (None, None, created, created, flags, None, object_id, None, None, None, properties, name, None, parent,
            None, None, kind)


def catalog_rows(system_tables, tables, query_list, relationships):
    containers = ["Databases", "Tables", "Relationships"]
    ids = {name: CONTAINER_ID + number for number, name in enumerate(containers, 1)}
    rows = [catalog_row(name, TYPE_CONTAINER, ids[name], CONTAINER_ID) for name in containers]
    for table in system_tables:
        rows.append(catalog_row(table.name, TYPE_TABLE, table.page, ids["Tables"], SYSTEM_OBJECT))
    for table in tables:
        rows.append(catalog_row(table.name, TYPE_TABLE, table.page, ids["Tables"], 0, table_properties(table)))
    for query in query_list:
        rows.append(catalog_row(query.name, TYPE_QUERY, query.id, ids["Tables"], 0, query_properties(query)))
    for number, relationship in enumerate(relationships.rows, 1):
        rows.append(catalog_row(relationship[-1], TYPE_RELATIONSHIP, query_list[-1].id + number, ids["Relationships"]))
    return rows


def query_rows(query_list):
    return [(attribute, expression, flag, None, name1, name2, query.id, None)
            for query in query_list for attribute, expression, flag, name1, name2 in query.rows]


# --- the file --------------------------------------------------------------

def database():
    catalog, sys_queries, relationships = msys_objects(), msys_queries(), msys_relationships()
    system_tables = [catalog, sys_queries, relationships]
    tables = user_tables()
    query_list = queries()
    every_table = system_tables + tables
    for page, table in enumerate(every_table, 2):
        table.page = page
    # Queries and relationships have no pages; their ids follow the last definition's.
    for number, query in enumerate(query_list, 1):
        query.id = every_table[-1].page + number
    catalog.rows = catalog_rows(system_tables, tables, query_list, relationships)
    sys_queries.rows = query_rows(query_list)

    next_page = 2 + len(every_table)
    owned, data = {}, []
    for table in every_table:
        pages = data_pages(table.page, [row_bytes(table, row) for row in table.rows])
        owned[table.name] = list(range(next_page, next_page + len(pages)))
        data += pages
        next_page += len(pages)

    # Page 1 holds two maps per table: the pages it uses, and those with room.
    maps, definitions = [], []
    for table in every_table:
        used = pg_row(1, len(maps))
        maps += [usage_map(owned[table.name]), usage_map(owned[table.name])]
        definitions.append(table_definition_page(table, len(table.rows), used, used + 1))
    return header_page() + data_page(0, maps) + b"".join(definitions) + b"".join(data)


def main():
    root = Path(__file__).resolve().parent.parent
    target = Path(sys.argv[1]) if len(sys.argv) > 1 else root / "AccessDemo" / "AccessDemo.mdb"
    target.write_bytes(database())
    print(f"wrote {target}")


if __name__ == "__main__":
    main()
