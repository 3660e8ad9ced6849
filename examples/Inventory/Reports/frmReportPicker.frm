VERSION 5.00
Begin VB.Form frmReportPicker 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Reports"
   ClientHeight    =   4575
   ClientLeft      =   45
   ClientTop       =   330
   ClientWidth     =   6135
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   ScaleHeight     =   4575
   ScaleWidth      =   6135
   ShowInTaskbar   =   0   'False
   StartUpPosition =   1  'CenterOwner
   Begin VB.Label lblReport 
      Caption         =   "&Report:"
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   2415
   End
   Begin VB.ListBox lstReports 
      Height          =   2400
      Left            =   120
      TabIndex        =   1
      Top             =   390
      Width           =   2775
   End
   Begin VB.Frame fraRange 
      Caption         =   "Date range"
      Height          =   2655
      Left            =   3120
      TabIndex        =   2
      Top             =   120
      Width           =   2895
      Begin VB.OptionButton optRange 
         Caption         =   "&This month"
         Height          =   255
         Index           =   0
         Left            =   120
         TabIndex        =   3
         Top             =   300
         Value           =   -1  'True
         Width           =   2535
      End
      Begin VB.OptionButton optRange 
         Caption         =   "&Last month"
         Height          =   255
         Index           =   1
         Left            =   120
         TabIndex        =   4
         Top             =   600
         Width           =   2535
      End
      Begin VB.OptionButton optRange 
         Caption         =   "&Between these dates:"
         Height          =   255
         Index           =   2
         Left            =   120
         TabIndex        =   5
         Top             =   900
         Width           =   2535
      End
      Begin VB.Label lblFrom 
         Caption         =   "&From:"
         Enabled         =   0   'False
         Height          =   255
         Left            =   360
         TabIndex        =   6
         Top             =   1290
         Width           =   615
      End
      Begin VB.TextBox txtFrom 
         Enabled         =   0   'False
         Height          =   285
         Left            =   1080
         TabIndex        =   7
         Top             =   1260
         Width           =   1335
      End
      Begin VB.Label lblTo 
         Caption         =   "T&o:"
         Enabled         =   0   'False
         Height          =   255
         Left            =   360
         TabIndex        =   8
         Top             =   1650
         Width           =   615
      End
      Begin VB.TextBox txtTo 
         Enabled         =   0   'False
         Height          =   285
         Left            =   1080
         TabIndex        =   9
         Top             =   1620
         Width           =   1335
      End
      Begin VB.CheckBox chkIncludeEmpty 
         Caption         =   "Include &empty lines"
         Height          =   255
         Left            =   120
         TabIndex        =   10
         Top             =   2160
         Width           =   2535
      End
   End
   Begin VB.Frame fraOutput 
      Caption         =   "Output"
      Height          =   975
      Left            =   120
      TabIndex        =   11
      Top             =   2880
      Width           =   5895
      Begin VB.OptionButton optPreview 
         Caption         =   "Pre&view on screen"
         Height          =   255
         Left            =   120
         TabIndex        =   12
         Top             =   300
         Value           =   -1  'True
         Width           =   2655
      End
      Begin VB.OptionButton optPrint 
         Caption         =   "&Print at once"
         Height          =   255
         Left            =   2880
         TabIndex        =   13
         Top             =   300
         Width           =   2655
      End
      Begin VB.CheckBox chkLandscape 
         Caption         =   "Lan&dscape page"
         Height          =   255
         Left            =   120
         TabIndex        =   14
         Top             =   600
         Width           =   2655
      End
   End
   Begin VB.CommandButton cmdOK 
      Caption         =   "OK"
      Default         =   -1  'True
      Height          =   375
      Left            =   3600
      TabIndex        =   15
      Top             =   4080
      Width           =   1095
   End
   Begin VB.CommandButton cmdCancel 
      Cancel          =   -1  'True
      Caption         =   "Cancel"
      Height          =   375
      Left            =   4920
      TabIndex        =   16
      Top             =   4080
      Width           =   1095
   End
End
Attribute VB_Name = "frmReportPicker"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private mConfirmed As Boolean
Private mFrom As Date
Private mTo As Date

Public Property Get Confirmed() As Boolean
    Confirmed = mConfirmed
End Property

Public Property Get ReportName() As String
    ReportName = lstReports.Text
End Property

Public Property Get DateFrom() As Date
    DateFrom = mFrom
End Property

Public Property Get DateTo() As Date
    DateTo = mTo
End Property

Public Property Get PrintDirectly() As Boolean
    PrintDirectly = optPrint.Value
End Property

Public Property Get Landscape() As Boolean
    Landscape = (chkLandscape.Value = vbChecked)
End Property

Private Sub Form_Load()
    lstReports.AddItem "Stock list"
    lstReports.AddItem "Items below reorder level"
    lstReports.AddItem "Stock value by category"
    lstReports.AddItem "Orders by supplier"
    lstReports.ListIndex = 0
    txtFrom.Text = Format$(Date - 7, "Short Date")
    txtTo.Text = Format$(Date, "Short Date")
End Sub

Private Sub optRange_Click(Index As Integer)
    Dim bOwnDates As Boolean

    bOwnDates = (Index = 2)
    lblFrom.Enabled = bOwnDates
    txtFrom.Enabled = bOwnDates
    lblTo.Enabled = bOwnDates
    txtTo.Enabled = bOwnDates
End Sub

Private Sub lstReports_DblClick()
    cmdOK_Click
End Sub

Private Sub cmdOK_Click()
    If optRange(0).Value Then
        mFrom = DateSerial(Year(Date), Month(Date), 1)
        mTo = Date
    ElseIf optRange(1).Value Then
        mFrom = DateSerial(Year(Date), Month(Date) - 1, 1)
        mTo = DateSerial(Year(Date), Month(Date), 0)
    Else
        If Not IsDate(txtFrom.Text) Or Not IsDate(txtTo.Text) Then
            MsgBox "Enter both dates.", vbExclamation, Caption
            Exit Sub
        End If
        mFrom = CDate(txtFrom.Text)
        mTo = CDate(txtTo.Text)
        If mTo < mFrom Then
            MsgBox "The second date comes before the first.", vbExclamation, Caption
            Exit Sub
        End If
    End If
    mConfirmed = True
    Hide
End Sub

Private Sub cmdCancel_Click()
    mConfirmed = False
    Hide
End Sub
