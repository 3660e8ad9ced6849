Attribute VB_Name = "modInventory"
Option Explicit

Public Type StockItem
    Code As String
    Description As String
    Category As String
    Warehouse As String
    OnHand As Long
    ReorderLevel As Long
    ReorderQty As Long
    SupplierCode As String
    Discontinued As Boolean
End Type

Public Type SupplierRecord
    Code As String
    Company As String
    Phone As String
    Fax As String
    ContactName As String
    ContactEmail As String
    PrefersEmail As Boolean
    Categories As Long
    LeadTimeDays As Integer
    MinimumOrder As Currency
End Type

' The order of these names is the order of the category check boxes.
Public Const CATEGORY_NAMES As String = "Hardware|Electrical|Plumbing|Garden|Paint|Tools"

Public gItems() As StockItem
Public gItemCount As Long
Public gSuppliers() As SupplierRecord
Public gSupplierCount As Long

Public Sub Main()
    frmSplash.Show
    frmSplash.Refresh
    LoadSampleData
    frmStock.Show
End Sub

Private Sub AddStockItem(ByVal sCode As String, ByVal sDescription As String, ByVal sCategory As String, _
                    ByVal sWarehouse As String, ByVal lOnHand As Long, ByVal lReorderLevel As Long, _
                    ByVal lReorderQty As Long, ByVal sSupplier As String)
    ReDim Preserve gItems(gItemCount)
    With gItems(gItemCount)
        .Code = sCode
        .Description = sDescription
        .Category = sCategory
        .Warehouse = sWarehouse
        .OnHand = lOnHand
        .ReorderLevel = lReorderLevel
        .ReorderQty = lReorderQty
        .SupplierCode = sSupplier
    End With
    gItemCount = gItemCount + 1
End Sub

Private Sub AddSupplier(ByVal sCode As String, ByVal sCompany As String, ByVal sPhone As String, _
                        ByVal sContact As String, ByVal sEmail As String, ByVal lCategories As Long, _
                        ByVal iLeadTime As Integer, ByVal cMinimum As Currency)
    ReDim Preserve gSuppliers(gSupplierCount)
    With gSuppliers(gSupplierCount)
        .Code = sCode
        .Company = sCompany
        .Phone = sPhone
        .ContactName = sContact
        .ContactEmail = sEmail
        .PrefersEmail = Len(sEmail) > 0
        .Categories = lCategories
        .LeadTimeDays = iLeadTime
        .MinimumOrder = cMinimum
    End With
    gSupplierCount = gSupplierCount + 1
End Sub

Public Sub LoadSampleData()
    gItemCount = 0
    gSupplierCount = 0
    AddSupplier "FAST", "Fastenings Direct Ltd", "01632 960410", "R. Patel", "orders@fastenings.example", 1, 3, 50
    AddSupplier "VOLT", "Voltline Wholesale", "01632 960722", "A. Novak", "", 2 Or 32, 5, 100
    AddSupplier "GRNH", "Greenhouse Supplies", "01632 960155", "C. Dubois", "sales@greenhouse.example", 8 Or 16, 7, 75

    AddStockItem "BOLT-M6", "Hex bolt M6 x 30, box of 100", "Hardware", "Main", 42, 50, 200, "FAST"
    AddStockItem "NUT-M6", "Hex nut M6, box of 100", "Hardware", "Main", 180, 50, 200, "FAST"
    AddStockItem "HINGE-50", "Butt hinge 50 mm, pair", "Hardware", "North", 0, 20, 60, "FAST"
    AddStockItem "CABLE-25", "Twin and earth cable 2.5 mm, 50 m", "Electrical", "Main", 12, 10, 20, "VOLT"
    AddStockItem "SOCKET-2G", "Double socket, white", "Electrical", "North", 64, 25, 50, "VOLT"
    AddStockItem "SEED-TOM", "Tomato seeds, packet", "Garden", "North", 8, 30, 100, "GRNH"
    AddStockItem "PAINT-1L", "Emulsion paint 1 l, white", "Paint", "Main", 25, 15, 40, "GRNH"
    AddStockItem "DRILL-SET", "HSS drill set, 19 pieces", "Tools", "Main", 5, 5, 10, "VOLT"
    gItems(gItemCount - 1).Discontinued = True
End Sub

Public Function CategoryName(ByVal iIndex As Integer) As String
    CategoryName = Split(CATEGORY_NAMES, "|")(iIndex)
End Function
