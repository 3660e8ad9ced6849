Attribute VB_Name = "modUtilities"
Option Compare Database
Option Explicit

' The total of an order, tax included.
Public Function OrderTotal(ByVal orderId As Long) As Currency
    OrderTotal = Nz(DSum("[Quantity]*[UnitPrice]*(1-[Discount])", "[Order Lines]", "OrderID=" & orderId), 0)
End Function
