VERSION 5.00
Begin VB.Form frmSupplier 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Supplier"
   ClientHeight    =   5415
   ClientLeft      =   45
   ClientTop       =   330
   ClientWidth     =   7455
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   ScaleHeight     =   5415
   ScaleWidth      =   7455
   ShowInTaskbar   =   0   'False
   StartUpPosition =   1  'CenterOwner
   Begin VB.Label lblSupplier 
      Caption         =   "&Supplier:"
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   180
      Width           =   975
   End
   Begin VB.ComboBox cboSupplier 
      Height          =   315
      Left            =   1200
      Style           =   2  'Dropdown List
      TabIndex        =   1
      Top             =   120
      Width           =   3135
   End
   Begin VB.Frame fraDetails 
      Caption         =   "Details"
      Height          =   2535
      Left            =   120
      TabIndex        =   2
      Top             =   600
      Width           =   7215
      Begin VB.Label lblCompany 
         Caption         =   "Co&mpany:"
         Height          =   255
         Left            =   120
         TabIndex        =   3
         Top             =   330
         Width           =   1095
      End
      Begin VB.TextBox txtCompany 
         Height          =   285
         Left            =   1320
         TabIndex        =   4
         Top             =   300
         Width           =   5775
      End
      Begin VB.Label lblPhone 
         Caption         =   "&Phone:"
         Height          =   255
         Left            =   120
         TabIndex        =   5
         Top             =   690
         Width           =   1095
      End
      Begin VB.TextBox txtPhone 
         Height          =   285
         Left            =   1320
         TabIndex        =   6
         Top             =   660
         Width           =   2175
      End
      Begin VB.Label lblFax 
         Caption         =   "&Fax:"
         Height          =   255
         Left            =   3720
         TabIndex        =   7
         Top             =   690
         Width           =   615
      End
      Begin VB.TextBox txtFax 
         Height          =   285
         Left            =   4440
         TabIndex        =   8
         Top             =   660
         Width           =   2655
      End
      Begin VB.Frame fraContact 
         Caption         =   "Contact person"
         ForeColor       =   &H00800000&
         Height          =   1335
         Left            =   120
         TabIndex        =   9
         Top             =   1080
         Width           =   6975
         Begin VB.Label lblContactName 
            Caption         =   "&Name:"
            Height          =   255
            Left            =   120
            TabIndex        =   10
            Top             =   330
            Width           =   975
         End
         Begin VB.TextBox txtContactName 
            Height          =   285
            Left            =   1200
            TabIndex        =   11
            Top             =   300
            Width           =   5655
         End
         Begin VB.Label lblContactEmail 
            Caption         =   "&E-mail:"
            Height          =   255
            Left            =   120
            TabIndex        =   12
            Top             =   690
            Width           =   975
         End
         Begin VB.TextBox txtContactEmail 
            Height          =   285
            Left            =   1200
            TabIndex        =   13
            Top             =   660
            Width           =   5655
         End
         Begin VB.CheckBox chkPrefersEmail 
            Caption         =   "Prefers orders by e-mai&l"
            Height          =   255
            Left            =   1200
            TabIndex        =   14
            Top             =   1000
            Width           =   3015
         End
      End
   End
   Begin VB.Frame fraCategories 
      Caption         =   "Supplies these categories"
      Height          =   1455
      Left            =   120
      TabIndex        =   15
      Top             =   3240
      Width           =   4335
      Begin VB.CheckBox chkCategory 
         Caption         =   "&Hardware"
         Height          =   255
         Index           =   0
         Left            =   240
         TabIndex        =   16
         Top             =   300
         Width           =   1935
      End
      Begin VB.CheckBox chkCategory 
         Caption         =   "Elec&trical"
         Height          =   255
         Index           =   1
         Left            =   240
         TabIndex        =   17
         Top             =   660
         Width           =   1935
      End
      Begin VB.CheckBox chkCategory 
         Caption         =   "Pl&umbing"
         Height          =   255
         Index           =   2
         Left            =   240
         TabIndex        =   18
         Top             =   1020
         Width           =   1935
      End
      Begin VB.CheckBox chkCategory 
         Caption         =   "&Garden"
         Height          =   255
         Index           =   3
         Left            =   2280
         TabIndex        =   19
         Top             =   300
         Width           =   1935
      End
      Begin VB.CheckBox chkCategory 
         Caption         =   "P&aint"
         Height          =   255
         Index           =   4
         Left            =   2280
         TabIndex        =   20
         Top             =   660
         Width           =   1935
      End
      Begin VB.CheckBox chkCategory 
         Caption         =   "T&ools"
         Height          =   255
         Index           =   5
         Left            =   2280
         TabIndex        =   21
         Top             =   1020
         Width           =   1935
      End
   End
   Begin VB.Frame fraOrdering 
      Caption         =   "Ordering"
      Height          =   1455
      Left            =   4560
      TabIndex        =   22
      Top             =   3240
      Width           =   2775
      Begin VB.Label lblLeadTime 
         Caption         =   "Lead time (&days):"
         Height          =   255
         Left            =   120
         TabIndex        =   23
         Top             =   330
         Width           =   1455
      End
      Begin VB.TextBox txtLeadTime 
         Alignment       =   1  'Right Justify
         Height          =   285
         Left            =   1680
         MaxLength       =   3
         TabIndex        =   24
         Top             =   300
         Width           =   855
      End
      Begin VB.Label lblMinOrder 
         Caption         =   "Minimum ord&er:"
         Height          =   255
         Left            =   120
         TabIndex        =   25
         Top             =   690
         Width           =   1455
      End
      Begin VB.TextBox txtMinOrder 
         Alignment       =   1  'Right Justify
         Height          =   285
         Left            =   1680
         TabIndex        =   26
         ToolTipText     =   "The smallest order value the supplier accepts"
         Top             =   660
         Width           =   855
      End
   End
   Begin VB.CommandButton cmdOK 
      Caption         =   "OK"
      Default         =   -1  'True
      Height          =   375
      Left            =   4800
      TabIndex        =   27
      Top             =   4920
      Width           =   1215
   End
   Begin VB.CommandButton cmdCancel 
      Cancel          =   -1  'True
      Caption         =   "Cancel"
      Height          =   375
      Left            =   6120
      TabIndex        =   28
      Top             =   4920
      Width           =   1215
   End
End
Attribute VB_Name = "frmSupplier"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private mCurrent As Long

Private Sub Form_Load()
    Dim i As Long

    mCurrent = -1
    For i = 0 To gSupplierCount - 1
        cboSupplier.AddItem gSuppliers(i).Code & " - " & gSuppliers(i).Company
        cboSupplier.ItemData(cboSupplier.NewIndex) = i
    Next i
    If cboSupplier.ListCount > 0 Then cboSupplier.ListIndex = 0
End Sub

Private Sub cboSupplier_Click()
    If mCurrent >= 0 Then
        If Not StoreSupplier(mCurrent) Then Exit Sub
    End If
    mCurrent = cboSupplier.ItemData(cboSupplier.ListIndex)
    ShowSupplier mCurrent
End Sub

Private Sub ShowSupplier(ByVal lIndex As Long)
    Dim i As Integer

    With gSuppliers(lIndex)
        txtCompany.Text = .Company
        txtPhone.Text = .Phone
        txtFax.Text = .Fax
        txtContactName.Text = .ContactName
        txtContactEmail.Text = .ContactEmail
        chkPrefersEmail.Value = IIf(.PrefersEmail, vbChecked, vbUnchecked)
        For i = chkCategory.LBound To chkCategory.UBound
            chkCategory(i).Value = IIf((.Categories And 2 ^ i) <> 0, vbChecked, vbUnchecked)
        Next i
        txtLeadTime.Text = CStr(.LeadTimeDays)
        txtMinOrder.Text = Format$(.MinimumOrder, "0.00")
    End With
End Sub

Private Function StoreSupplier(ByVal lIndex As Long) As Boolean
    Dim i As Integer
    Dim lMask As Long

    If Not IsNumeric(txtLeadTime.Text) Then
        MsgBox "The lead time is a number of days.", vbExclamation, Caption
        txtLeadTime.SetFocus
        Exit Function
    End If
    If Not IsNumeric(txtMinOrder.Text) Then
        MsgBox "The minimum order is an amount of money.", vbExclamation, Caption
        txtMinOrder.SetFocus
        Exit Function
    End If
    For i = chkCategory.LBound To chkCategory.UBound
        If chkCategory(i).Value = vbChecked Then lMask = lMask Or 2 ^ i
    Next i
    With gSuppliers(lIndex)
        .Company = txtCompany.Text
        .Phone = txtPhone.Text
        .Fax = txtFax.Text
        .ContactName = txtContactName.Text
        .ContactEmail = txtContactEmail.Text
        .PrefersEmail = (chkPrefersEmail.Value = vbChecked)
        .Categories = lMask
        .LeadTimeDays = CInt(txtLeadTime.Text)
        .MinimumOrder = CCur(txtMinOrder.Text)
    End With
    StoreSupplier = True
End Function

Private Sub chkCategory_Click(Index As Integer)
    Dim i As Integer
    Dim iChecked As Integer

    For i = chkCategory.LBound To chkCategory.UBound
        If chkCategory(i).Value = vbChecked Then iChecked = iChecked + 1
    Next i
    If iChecked = 0 Then
        MsgBox "A supplier supplies at least one category.", vbInformation, Caption
        chkCategory(Index).Value = vbChecked
    End If
End Sub

Private Sub chkPrefersEmail_Click()
    If chkPrefersEmail.Value = vbChecked And Len(txtContactEmail.Text) = 0 Then
        MsgBox "Enter the contact's e-mail address too.", vbInformation, Caption
    End If
End Sub

Private Sub cmdOK_Click()
    If mCurrent >= 0 Then
        If Not StoreSupplier(mCurrent) Then Exit Sub
    End If
    Unload Me
End Sub

Private Sub cmdCancel_Click()
    Unload Me
End Sub
