Attribute VB_Name = "modMain"
Option Explicit

' Surcharge added to every order sent by express delivery.
Public Const EXPRESS_SURCHARGE As Currency = 15

Public gUserName As String
Public gOrders As Collection

Private mNextOrderNo As Long

Public Sub Main()
    Set gOrders = New Collection
    mNextOrderNo = CLng(GetSetting(App.Title, "Orders", "LastNumber", "1000"))
    App.HelpFile = App.Path & "\OrderDesk.chm"

    frmLogin.Show vbModal
    If Len(gUserName) = 0 Then Exit Sub
    frmMain.Show
End Sub

Public Function NewOrder() As clsOrder
    Dim oOrder As clsOrder

    mNextOrderNo = mNextOrderNo + 1
    SaveSetting App.Title, "Orders", "LastNumber", CStr(mNextOrderNo)
    Set oOrder = New clsOrder
    oOrder.OrderNo = "ORD" & Format$(mNextOrderNo, "000000")
    oOrder.OrderDate = Date
    gOrders.Add oOrder, oOrder.OrderNo
    Set NewOrder = oOrder
End Function

Public Function FindOrder(ByVal sOrderNo As String) As clsOrder
    On Error Resume Next
    Set FindOrder = gOrders(UCase$(Trim$(sOrderNo)))
End Function

Public Function ProductPrice(ByVal sCode As String) As Currency
    Select Case UCase$(Trim$(sCode))
        Case "BOLT-M6"
            ProductPrice = 0.12
        Case "NUT-M6"
            ProductPrice = 0.05
        Case "HINGE-50"
            ProductPrice = 2.4
        Case "LOCK-CYL"
            ProductPrice = 18.9
        Case "PAINT-1L"
            ProductPrice = 9.75
        Case Else
            ProductPrice = 0
    End Select
End Function

Public Function FormatMoney(ByVal cAmount As Currency) As String
    FormatMoney = Format$(cAmount, "#,##0.00")
End Function

Public Function PasswordIsValid(ByVal sUser As String, ByVal sPassword As String) As Boolean
    ' The sample accepts any password of six characters or more.
    PasswordIsValid = Len(sUser) > 0 And Len(sPassword) >= 6
End Function
