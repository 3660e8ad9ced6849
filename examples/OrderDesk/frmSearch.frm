VERSION 5.00
Object = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"; "MSCOMCTL.OCX"
Begin VB.Form frmSearch 
   Caption         =   "Find Orders"
   ClientHeight    =   4815
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   7335
   LinkTopic       =   "Form1"
   MDIChild        =   -1  'True
   ScaleHeight     =   4815
   ScaleWidth      =   7335
   Begin VB.Timer tmrSearch 
      Enabled         =   0   'False
      Interval        =   400
      Left            =   6720
      Top             =   480
   End
   Begin VB.Label lblFind 
      Caption         =   "Find &what:"
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   150
      Width           =   975
   End
   Begin VB.TextBox txtFind 
      Height          =   285
      Left            =   1200
      TabIndex        =   1
      ToolTipText     =   "Part of an order number, a customer code or a product code"
      Top             =   120
      Width           =   3255
   End
   Begin VB.Label lblField 
      Caption         =   "&In:"
      Height          =   255
      Left            =   4560
      TabIndex        =   2
      Top             =   150
      Width           =   375
   End
   Begin VB.ComboBox cboField 
      Height          =   315
      Left            =   4920
      Style           =   2  'Dropdown List
      TabIndex        =   3
      Top             =   120
      Width           =   1095
   End
   Begin VB.CommandButton cmdFind 
      Caption         =   "&Find"
      Default         =   -1  'True
      Height          =   375
      Left            =   6120
      TabIndex        =   4
      Top             =   90
      Width           =   1095
   End
   Begin VB.CheckBox chkOpenOnly 
      Caption         =   "&Open orders only"
      Height          =   255
      Left            =   1200
      TabIndex        =   5
      Top             =   540
      Value           =   1  'Checked
      Width           =   2175
   End
   Begin VB.CheckBox chkMatchCase 
      Caption         =   "Match &case"
      Height          =   255
      Left            =   3480
      TabIndex        =   6
      Top             =   540
      Width           =   1575
   End
   Begin VB.Line linSeparator 
      BorderColor     =   &H80000010&
      X1              =   120
      X2              =   7215
      Y1              =   960
      Y2              =   960
   End
   Begin MSComctlLib.ListView lvwResults 
      Height          =   3135
      Left            =   120
      TabIndex        =   7
      Top             =   1080
      Width           =   7095
      _ExtentX        =   12515
      _ExtentY        =   5530
      View            =   3
      LabelEdit       =   1
      Sorted          =   -1  'True
      LabelWrap       =   -1  'True
      HideSelection   =   0   'False
      FullRowSelect   =   -1  'True
      GridLines       =   -1  'True
      _Version        =   393217
      ForeColor       =   -2147483640
      BackColor       =   -2147483643
      BorderStyle     =   1
      Appearance      =   1
      NumItems        =   4
      BeginProperty ColumnHeader(1) {BDD1F052-858B-11D1-B16A-00C0F0283628} 
         Text            =   "Order No."
         Object.Width           =   2117
      EndProperty
      BeginProperty ColumnHeader(2) {BDD1F052-858B-11D1-B16A-00C0F0283628} 
         SubItemIndex    =   1
         Text            =   "Customer"
         Object.Width           =   2646
      EndProperty
      BeginProperty ColumnHeader(3) {BDD1F052-858B-11D1-B16A-00C0F0283628} 
         SubItemIndex    =   2
         Text            =   "Date"
         Object.Width           =   2117
      EndProperty
      BeginProperty ColumnHeader(4) {BDD1F052-858B-11D1-B16A-00C0F0283628} 
         Alignment       =   1
         SubItemIndex    =   3
         Text            =   "Total"
         Object.Width           =   2293
      EndProperty
   End
   Begin VB.Label lblCount 
      Caption         =   "No orders found"
      Height          =   255
      Left            =   120
      TabIndex        =   8
      Top             =   4380
      Width           =   3495
   End
   Begin VB.CommandButton cmdOpen 
      Caption         =   "&Open"
      Enabled         =   0   'False
      Height          =   375
      Left            =   4800
      TabIndex        =   9
      Top             =   4320
      Width           =   1095
   End
   Begin VB.CommandButton cmdClose 
      Cancel          =   -1  'True
      Caption         =   "Close"
      Height          =   375
      Left            =   6120
      TabIndex        =   10
      Top             =   4320
      Width           =   1095
   End
End
Attribute VB_Name = "frmSearch"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub Form_Load()
    cboField.AddItem "Any field"
    cboField.AddItem "Order No."
    cboField.AddItem "Customer"
    cboField.AddItem "Product"
    cboField.ListIndex = 0
End Sub

Private Sub txtFind_Change()
    ' Search a moment after the typing stops, not on every key.
    tmrSearch.Enabled = False
    tmrSearch.Enabled = True
End Sub

Private Sub tmrSearch_Timer()
    tmrSearch.Enabled = False
    RunSearch
End Sub

Private Sub cmdFind_Click()
    tmrSearch.Enabled = False
    RunSearch
End Sub

Private Function Matches(ByVal sValue As String, ByVal sFind As String) As Boolean
    If chkMatchCase.Value = vbChecked Then
        Matches = InStr(1, sValue, sFind, vbBinaryCompare) > 0
    Else
        Matches = InStr(1, sValue, sFind, vbTextCompare) > 0
    End If
End Function

Private Function OrderMatches(oOrder As clsOrder, ByVal sFind As String) As Boolean
    Dim i As Long

    If chkOpenOnly.Value = vbChecked And oOrder.DeliveryDate <> 0 And oOrder.DeliveryDate < Date Then Exit Function
    Select Case cboField.ListIndex
        Case 1
            OrderMatches = Matches(oOrder.OrderNo, sFind)
        Case 2
            OrderMatches = Matches(oOrder.CustomerCode, sFind)
        Case 3
            For i = 0 To oOrder.LineCount - 1
                If Matches(oOrder.LineProduct(i), sFind) Then OrderMatches = True
            Next i
        Case Else
            OrderMatches = Matches(oOrder.OrderNo & " " & oOrder.CustomerCode, sFind)
    End Select
End Function

Private Sub RunSearch()
    Dim oOrder As clsOrder
    Dim itm As MSComctlLib.ListItem

    lvwResults.ListItems.Clear
    For Each oOrder In gOrders
        If OrderMatches(oOrder, txtFind.Text) Then
            Set itm = lvwResults.ListItems.Add(, oOrder.OrderNo, oOrder.OrderNo)
            itm.SubItems(1) = oOrder.CustomerCode
            itm.SubItems(2) = Format$(oOrder.OrderDate, "Short Date")
            itm.SubItems(3) = FormatMoney(oOrder.Total)
        End If
    Next oOrder
    Select Case lvwResults.ListItems.Count
        Case 0
            lblCount.Caption = "No orders found"
        Case 1
            lblCount.Caption = "1 order found"
        Case Else
            lblCount.Caption = lvwResults.ListItems.Count & " orders found"
    End Select
    cmdOpen.Enabled = lvwResults.ListItems.Count > 0
End Sub

Private Sub lvwResults_ColumnClick(ByVal ColumnHeader As MSComctlLib.ColumnHeader)
    lvwResults.SortKey = ColumnHeader.Index - 1
    lvwResults.Sorted = True
End Sub

Private Sub lvwResults_DblClick()
    cmdOpen_Click
End Sub

Private Sub cmdOpen_Click()
    Dim frm As frmOrder

    If lvwResults.SelectedItem Is Nothing Then Exit Sub
    Set frm = New frmOrder
    Set frm.Order = FindOrder(lvwResults.SelectedItem.Text)
    frm.Show
End Sub

Private Sub cmdClose_Click()
    Unload Me
End Sub
