VERSION 5.00
Begin VB.Form frmStock 
   Caption         =   "Stock"
   ClientHeight    =   5775
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   8535
   HelpContextID   =   2000
   LinkTopic       =   "Form1"
   ScaleHeight     =   5775
   ScaleWidth      =   8535
   StartUpPosition =   3  'Windows Default
   Begin VB.Label lblWarehouse 
      Caption         =   "&Warehouse:"
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   180
      Width           =   1095
   End
   Begin VB.ComboBox cboWarehouse 
      Height          =   315
      Left            =   1320
      Style           =   2  'Dropdown List
      TabIndex        =   1
      Top             =   120
      Width           =   2415
   End
   Begin VB.Label lblCategory 
      Caption         =   "&Category:"
      Height          =   255
      Left            =   3960
      TabIndex        =   2
      Top             =   180
      Width           =   975
   End
   Begin VB.ComboBox cboCategory 
      Height          =   315
      Left            =   5040
      Style           =   2  'Dropdown List
      TabIndex        =   3
      ToolTipText     =   "Show the items of one category only"
      Top             =   120
      Width           =   2295
   End
   Begin VB.Label lblColItem 
      BackColor       =   &H00E0E0E0&
      BorderStyle     =   1  'Fixed Single
      Caption         =   " Item"
      Height          =   255
      Left            =   120
      TabIndex        =   4
      Top             =   600
      Width           =   1335
   End
   Begin VB.Label lblColDescription 
      BackColor       =   &H00E0E0E0&
      BorderStyle     =   1  'Fixed Single
      Caption         =   " Description"
      Height          =   255
      Left            =   1455
      TabIndex        =   5
      Top             =   600
      Width           =   2895
   End
   Begin VB.Label lblColOnHand 
      Alignment       =   1  'Right Justify
      BackColor       =   &H00E0E0E0&
      BorderStyle     =   1  'Fixed Single
      Caption         =   "On hand "
      Height          =   255
      Left            =   4350
      TabIndex        =   6
      Top             =   600
      Width           =   1005
   End
   Begin VB.Label lblColReorder 
      Alignment       =   1  'Right Justify
      BackColor       =   &H00E0E0E0&
      BorderStyle     =   1  'Fixed Single
      Caption         =   "Reorder at "
      Height          =   255
      Left            =   5355
      TabIndex        =   7
      Top             =   600
      Width           =   1020
   End
   Begin VB.ListBox lstStock 
      Height          =   3570
      IntegralHeight  =   0   'False
      Left            =   120
      TabIndex        =   8
      ToolTipText     =   "Double-click an item to reorder it"
      Top             =   855
      Width           =   6255
   End
   Begin VB.Frame fraShow 
      Caption         =   "Show"
      Height          =   1335
      Left            =   6600
      TabIndex        =   9
      Top             =   600
      Width           =   1815
      Begin VB.OptionButton optShowAll 
         Caption         =   "&All items"
         Height          =   255
         Left            =   120
         TabIndex        =   10
         Top             =   300
         Value           =   -1  'True
         Width           =   1575
      End
      Begin VB.OptionButton optShowLow 
         Caption         =   "&Low stock"
         Height          =   255
         Left            =   120
         TabIndex        =   11
         Top             =   600
         Width           =   1575
      End
      Begin VB.OptionButton optShowOut 
         Caption         =   "&Out of stock"
         Height          =   255
         Left            =   120
         TabIndex        =   12
         Top             =   900
         Width           =   1575
      End
   End
   Begin VB.Frame fraSort 
      Caption         =   "Sort by"
      Height          =   1335
      Left            =   6600
      TabIndex        =   13
      Top             =   2040
      Width           =   1815
      Begin VB.OptionButton optSortBy 
         Caption         =   "It&em code"
         Height          =   255
         Index           =   0
         Left            =   120
         TabIndex        =   14
         Top             =   300
         Value           =   -1  'True
         Width           =   1575
      End
      Begin VB.OptionButton optSortBy 
         Caption         =   "Descri&ption"
         Height          =   255
         Index           =   1
         Left            =   120
         TabIndex        =   15
         Top             =   600
         Width           =   1575
      End
      Begin VB.OptionButton optSortBy 
         Caption         =   "On &hand"
         Height          =   255
         Index           =   2
         Left            =   120
         TabIndex        =   16
         Top             =   900
         Width           =   1575
      End
   End
   Begin VB.CheckBox chkDiscontinued 
      Caption         =   "Include &discontinued items"
      Height          =   255
      Left            =   120
      TabIndex        =   17
      Top             =   4560
      Width           =   3015
   End
   Begin VB.Label lblSummary 
      Alignment       =   1  'Right Justify
      Caption         =   "0 items"
      Height          =   255
      Left            =   3240
      TabIndex        =   18
      Top             =   4560
      Width           =   5175
   End
   Begin VB.CommandButton cmdSuppliers 
      Caption         =   "&Suppliers..."
      Height          =   375
      Left            =   120
      TabIndex        =   19
      Top             =   5160
      Width           =   1335
   End
   Begin VB.CommandButton cmdReorder 
      Caption         =   "&Reorder..."
      Height          =   375
      HelpContextID   =   2030
      Left            =   1560
      TabIndex        =   20
      Top             =   5160
      Width           =   1335
   End
   Begin VB.CommandButton cmdReports 
      Caption         =   "Re&ports..."
      Height          =   375
      Left            =   3000
      TabIndex        =   21
      Top             =   5160
      Width           =   1335
   End
   Begin VB.CommandButton cmdClose 
      Cancel          =   -1  'True
      Caption         =   "Close"
      Height          =   375
      Left            =   7080
      TabIndex        =   22
      Top             =   5160
      Width           =   1335
   End
End
Attribute VB_Name = "frmStock"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Declare Function SendMessage Lib "user32" Alias "SendMessageA" _
    (ByVal hWnd As Long, ByVal wMsg As Long, ByVal wParam As Long, lParam As Any) As Long

Private Const LB_SETTABSTOPS As Long = &H192

Private mLoading As Boolean

Private Sub Form_Load()
    Dim lStops(2) As Long
    Dim i As Integer
    Dim vNames As Variant

    ' Tab stops in dialog units line the list up under the header labels.
    lStops(0) = 60
    lStops(1) = 194
    lStops(2) = 240
    SendMessage lstStock.hWnd, LB_SETTABSTOPS, 3, lStops(0)

    mLoading = True
    cboWarehouse.AddItem "(all)"
    cboWarehouse.AddItem "Main"
    cboWarehouse.AddItem "North"
    cboWarehouse.ListIndex = 0
    cboCategory.AddItem "(all)"
    vNames = Split(CATEGORY_NAMES, "|")
    For i = 0 To UBound(vNames)
        cboCategory.AddItem vNames(i)
    Next i
    cboCategory.ListIndex = 0
    mLoading = False
    FillList
End Sub

Private Function ItemIsShown(ByVal lIndex As Long) As Boolean
    With gItems(lIndex)
        If .Discontinued And chkDiscontinued.Value = vbUnchecked Then Exit Function
        If cboWarehouse.ListIndex > 0 And .Warehouse <> cboWarehouse.Text Then Exit Function
        If cboCategory.ListIndex > 0 And .Category <> cboCategory.Text Then Exit Function
        If optShowLow.Value And .OnHand > .ReorderLevel Then Exit Function
        If optShowOut.Value And .OnHand > 0 Then Exit Function
    End With
    ItemIsShown = True
End Function

Private Function SortKey(ByVal lIndex As Long) As String
    With gItems(lIndex)
        If optSortBy(1).Value Then
            SortKey = UCase$(.Description)
        ElseIf optSortBy(2).Value Then
            SortKey = Format$(.OnHand, "0000000000")
        Else
            SortKey = .Code
        End If
    End With
End Function

Private Sub FillList()
    Dim lOrder() As Long
    Dim lCount As Long
    Dim i As Long
    Dim j As Long
    Dim lSwap As Long

    If mLoading Then Exit Sub
    If gItemCount = 0 Then Exit Sub
    ReDim lOrder(gItemCount - 1)
    For i = 0 To gItemCount - 1
        If ItemIsShown(i) Then
            lOrder(lCount) = i
            lCount = lCount + 1
        End If
    Next i
    ' A handful of items: a simple insertion sort is plenty.
    For i = 1 To lCount - 1
        lSwap = lOrder(i)
        j = i - 1
        Do While j >= 0
            If SortKey(lOrder(j)) <= SortKey(lSwap) Then Exit Do
            lOrder(j + 1) = lOrder(j)
            j = j - 1
        Loop
        lOrder(j + 1) = lSwap
    Next i

    lstStock.Clear
    For i = 0 To lCount - 1
        With gItems(lOrder(i))
            lstStock.AddItem .Code & vbTab & .Description & vbTab & .OnHand & vbTab & .ReorderLevel
            lstStock.ItemData(lstStock.NewIndex) = lOrder(i)
        End With
    Next i
    lblSummary.Caption = lCount & IIf(lCount = 1, " item", " items")
End Sub

Private Sub cboWarehouse_Click()
    FillList
End Sub

Private Sub cboCategory_Click()
    FillList
End Sub

Private Sub optShowAll_Click()
    FillList
End Sub

Private Sub optShowLow_Click()
    FillList
End Sub

Private Sub optShowOut_Click()
    FillList
End Sub

Private Sub optSortBy_Click(Index As Integer)
    FillList
End Sub

Private Sub chkDiscontinued_Click()
    FillList
End Sub

Private Sub lstStock_DblClick()
    cmdReorder_Click
End Sub

Private Sub cmdSuppliers_Click()
    frmSupplier.Show vbModal, Me
End Sub

Private Sub cmdReorder_Click()
    frmReorder.Show vbModal, Me
    FillList
End Sub

Private Sub cmdReports_Click()
    Dim oReports As InventoryReports.clsReportServer
    Dim sReport As String
    Dim dFrom As Date
    Dim dTo As Date

    Set oReports = New InventoryReports.clsReportServer
    If oReports.ChooseReport(sReport, dFrom, dTo) Then
        oReports.Preview sReport, ReportText(sReport)
    End If
End Sub

Private Function ReportText(ByVal sReport As String) As String
    Dim i As Long
    Dim sText As String

    For i = 0 To gItemCount - 1
        With gItems(i)
            Select Case sReport
                Case "Items below reorder level"
                    If .OnHand <= .ReorderLevel Then sText = sText & .Code & vbTab & .OnHand & vbCrLf
                Case Else
                    sText = sText & .Code & vbTab & .Description & vbTab & .OnHand & vbCrLf
            End Select
        End With
    Next i
    ReportText = sText
End Function

Private Sub cmdClose_Click()
    Unload Me
End Sub
