VERSION 5.00
Begin VB.Form frmCustomer 
   Caption         =   "Customer"
   ClientHeight    =   5535
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   6975
   BeginProperty Font {0BE35203-8F91-11CE-9DE3-00AA004BB851} 
      Name            =   "Tahoma"
      Size            =   8.25
      Charset         =   0
      Weight          =   400
      Underline       =   0   'False
      Italic          =   0   'False
      Strikethrough   =   0   'False
   EndProperty
   HelpContextID   =   1010
   LinkTopic       =   "Form1"
   MDIChild        =   -1  'True
   ScaleHeight     =   5535
   ScaleWidth      =   6975
   Begin VB.Label lblHeader 
      BackStyle       =   0  'Transparent
      Caption         =   "Customer details"
      BeginProperty Font {0BE35203-8F91-11CE-9DE3-00AA004BB851} 
         Name            =   "Tahoma"
         Size            =   9.75
         Charset         =   0
         Weight          =   700
         Underline       =   0   'False
         Italic          =   0   'False
         Strikethrough   =   0   'False
      EndProperty
      ForeColor       =   &H00800000&
      Height          =   300
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   4095
   End
   Begin VB.Label lblCode 
      Caption         =   "Customer &code:"
      Height          =   255
      Left            =   120
      TabIndex        =   1
      Top             =   600
      Width           =   1335
   End
   Begin VB.TextBox txtCode 
      BackColor       =   &H00C0FFFF&
      Height          =   285
      Left            =   1560
      MaxLength       =   8
      TabIndex        =   2
      ToolTipText     =   "Up to eight letters or digits that identify the customer"
      Top             =   570
      Width           =   1335
   End
   Begin VB.Label lblName 
      Caption         =   "&Name:"
      Height          =   255
      Left            =   120
      TabIndex        =   3
      Top             =   960
      Width           =   1335
   End
   Begin VB.TextBox txtName 
      Height          =   285
      Left            =   1560
      MaxLength       =   60
      TabIndex        =   4
      Top             =   930
      Width           =   5295
   End
   Begin VB.Label lblAddress 
      Caption         =   "&Address:"
      Height          =   255
      Left            =   120
      TabIndex        =   5
      Top             =   1320
      Width           =   1335
   End
   Begin VB.TextBox txtAddress 
      Height          =   285
      Left            =   1560
      TabIndex        =   6
      Top             =   1290
      Width           =   5295
   End
   Begin VB.Label lblCity 
      Caption         =   "C&ity:"
      Height          =   255
      Left            =   120
      TabIndex        =   7
      Top             =   1680
      Width           =   1335
   End
   Begin VB.TextBox txtCity 
      Height          =   285
      Left            =   1560
      TabIndex        =   8
      Top             =   1650
      Width           =   2415
   End
   Begin VB.Label lblCountry 
      Caption         =   "Co&untry:"
      Height          =   255
      Left            =   4080
      TabIndex        =   9
      Top             =   1680
      Width           =   735
   End
   Begin VB.ComboBox cboCountry 
      Height          =   315
      Left            =   4800
      Sorted          =   -1  'True
      Style           =   2  'Dropdown List
      TabIndex        =   10
      Top             =   1650
      Width           =   2055
   End
   Begin VB.Label lblPhone 
      Caption         =   "&Phone:"
      Height          =   255
      Left            =   120
      TabIndex        =   11
      Top             =   2040
      Width           =   1335
   End
   Begin VB.TextBox txtPhone 
      Height          =   285
      Left            =   1560
      TabIndex        =   12
      Top             =   2010
      Width           =   2415
   End
   Begin VB.Label lblContacts 
      Caption         =   "Con&tacts:"
      Height          =   255
      Left            =   120
      TabIndex        =   13
      Top             =   2430
      Width           =   1335
   End
   Begin VB.ListBox lstContacts 
      Height          =   1425
      Left            =   1560
      TabIndex        =   14
      ToolTipText     =   "Double-click a contact to edit it"
      Top             =   2400
      Width           =   2415
   End
   Begin VB.Frame fraTerms 
      Caption         =   "Terms"
      ForeColor       =   &H00800000&
      Height          =   2415
      Left            =   4080
      TabIndex        =   15
      Top             =   2400
      Width           =   2775
      Begin VB.Frame fraPayment 
         Caption         =   "Payment"
         Height          =   1215
         Left            =   120
         TabIndex        =   16
         Top             =   240
         Width           =   2535
         Begin VB.OptionButton optCash 
            Caption         =   "Ca&sh"
            Height          =   255
            Left            =   120
            TabIndex        =   17
            Top             =   240
            Value           =   -1  'True
            Width           =   2295
         End
         Begin VB.OptionButton optInvoice 
            Caption         =   "In&voice, 30 days"
            Height          =   255
            Left            =   120
            TabIndex        =   18
            Top             =   540
            Width           =   2295
         End
         Begin VB.OptionButton optCard 
            Caption         =   "C&redit card"
            Height          =   255
            Left            =   120
            TabIndex        =   19
            Top             =   840
            Width           =   2295
         End
      End
      Begin VB.Label lblDiscount 
         Caption         =   "&Discount %:"
         Height          =   255
         Left            =   120
         TabIndex        =   20
         Top             =   1620
         Width           =   1095
      End
      Begin VB.TextBox txtDiscount 
         Alignment       =   1  'Right Justify
         Height          =   285
         Left            =   1320
         MaxLength       =   5
         TabIndex        =   21
         Text            =   "0"
         Top             =   1590
         Width           =   735
      End
      Begin VB.CheckBox chkTaxExempt 
         Caption         =   "Tax e&xempt"
         Height          =   255
         Left            =   120
         TabIndex        =   22
         Top             =   1980
         Width           =   2415
      End
   End
   Begin VB.Label lblNotes 
      Caption         =   "N&otes:"
      Height          =   255
      Left            =   120
      TabIndex        =   23
      Top             =   3960
      Width           =   1335
   End
   Begin VB.TextBox txtNotes 
      Height          =   855
      Left            =   1560
      MultiLine       =   -1  'True
      ScrollBars      =   2  'Vertical
      TabIndex        =   24
      Top             =   3960
      Width           =   2415
   End
   Begin VB.CommandButton cmdOK 
      Caption         =   "OK"
      Default         =   -1  'True
      Height          =   375
      Left            =   4320
      TabIndex        =   25
      Top             =   5040
      Width           =   1215
   End
   Begin VB.CommandButton cmdCancel 
      Cancel          =   -1  'True
      Caption         =   "Cancel"
      Height          =   375
      Left            =   5640
      TabIndex        =   26
      Top             =   5040
      Width           =   1215
   End
End
Attribute VB_Name = "frmCustomer"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private mDirty As Boolean

Private Sub Form_Load()
    cboCountry.AddItem "Austria"
    cboCountry.AddItem "Belgium"
    cboCountry.AddItem "Canada"
    cboCountry.AddItem "France"
    cboCountry.AddItem "Germany"
    cboCountry.AddItem "Ireland"
    cboCountry.AddItem "Netherlands"
    cboCountry.AddItem "Spain"
    cboCountry.AddItem "United Kingdom"
    cboCountry.AddItem "United States"
    cboCountry.Text = "United Kingdom"
    mDirty = False
End Sub

Private Sub Form_QueryUnload(Cancel As Integer, UnloadMode As Integer)
    If mDirty And UnloadMode = vbFormControlMenu Then
        If MsgBox("Discard the changes to this customer?", vbQuestion + vbYesNo, Caption) = vbNo Then
            Cancel = True
        End If
    End If
End Sub

Private Sub txtCode_KeyPress(KeyAscii As Integer)
    ' Codes are upper case letters and digits only.
    If KeyAscii = vbKeyBack Then Exit Sub
    KeyAscii = Asc(UCase$(Chr$(KeyAscii)))
    If Not (Chr$(KeyAscii) Like "[A-Z0-9]") Then KeyAscii = 0
End Sub

Private Sub txtCode_Change()
    mDirty = True
End Sub

Private Sub txtName_Change()
    mDirty = True
    Caption = "Customer - " & txtName.Text
End Sub

Private Sub txtDiscount_Validate(Cancel As Boolean)
    If Not IsNumeric(txtDiscount.Text) Then
        Cancel = True
    ElseIf CDbl(txtDiscount.Text) < 0 Or CDbl(txtDiscount.Text) > 50 Then
        Cancel = True
    End If
    If Cancel Then MsgBox "The discount is a number from 0 to 50.", vbExclamation, Caption
End Sub

Private Sub lstContacts_DblClick()
    Dim sName As String

    If lstContacts.ListIndex < 0 Then Exit Sub
    sName = InputBox("Contact name:", "Edit Contact", lstContacts.Text)
    If Len(sName) > 0 Then
        lstContacts.List(lstContacts.ListIndex) = sName
        mDirty = True
    End If
End Sub

Private Sub lstContacts_KeyDown(KeyCode As Integer, Shift As Integer)
    Dim sName As String

    If KeyCode = vbKeyInsert Then
        sName = InputBox("Contact name:", "New Contact")
        If Len(sName) > 0 Then lstContacts.AddItem sName
    ElseIf KeyCode = vbKeyDelete And lstContacts.ListIndex >= 0 Then
        lstContacts.RemoveItem lstContacts.ListIndex
    End If
End Sub

Private Function PaymentTerms() As String
    If optCash.Value Then
        PaymentTerms = "CASH"
    ElseIf optInvoice.Value Then
        PaymentTerms = "NET30"
    Else
        PaymentTerms = "CARD"
    End If
End Function

Private Sub cmdOK_Click()
    If Len(Trim$(txtCode.Text)) = 0 Then
        MsgBox "Enter a customer code.", vbExclamation, Caption
        txtCode.SetFocus
        Exit Sub
    End If
    If Len(Trim$(txtName.Text)) = 0 Then
        MsgBox "Enter the customer's name.", vbExclamation, Caption
        txtName.SetFocus
        Exit Sub
    End If
    SaveSetting App.Title, "Customer " & txtCode.Text, "Name", txtName.Text
    SaveSetting App.Title, "Customer " & txtCode.Text, "Terms", PaymentTerms()
    mDirty = False
    Unload Me
End Sub

Private Sub cmdCancel_Click()
    mDirty = False
    Unload Me
End Sub
