VERSION 5.00
Begin VB.Form frmPrintPreview 
   Caption         =   "Print Preview"
   ClientHeight    =   6135
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   7815
   LinkTopic       =   "Form1"
   ScaleHeight     =   6135
   ScaleWidth      =   7815
   StartUpPosition =   3  'Windows Default
   Begin InventoryReports.ctlPageNav pnvPages 
      Height          =   375
      Left            =   120
      TabIndex        =   0
      Top             =   90
      Width           =   2895
      _ExtentX        =   5106
      _ExtentY        =   661
   End
   Begin VB.Label lblZoom 
      Caption         =   "&Zoom:"
      Height          =   255
      Left            =   3240
      TabIndex        =   1
      Top             =   150
      Width           =   615
   End
   Begin VB.ComboBox cboZoom 
      Height          =   315
      Left            =   3900
      Style           =   2  'Dropdown List
      TabIndex        =   2
      Top             =   120
      Width           =   1215
   End
   Begin VB.CommandButton cmdPrint 
      Caption         =   "&Print..."
      Height          =   375
      Left            =   5280
      TabIndex        =   3
      Top             =   90
      Width           =   1095
   End
   Begin VB.CommandButton cmdClose 
      Cancel          =   -1  'True
      Caption         =   "Close"
      Height          =   375
      Left            =   6480
      TabIndex        =   4
      Top             =   90
      Width           =   1215
   End
   Begin VB.PictureBox picViewport 
      BackColor       =   &H00808080&
      Height          =   5415
      Left            =   120
      ScaleHeight     =   5355
      ScaleWidth      =   7515
      TabIndex        =   5
      Top             =   600
      Width           =   7575
      Begin VB.PictureBox picPage 
         AutoRedraw      =   -1  'True
         BackColor       =   &H00FFFFFF&
         BorderStyle     =   0  'None
         BeginProperty Font {0BE35203-8F91-11CE-9DE3-00AA004BB851} 
            Name            =   "Courier New"
            Size            =   9
            Charset         =   0
            Weight          =   400
            Underline       =   0   'False
            Italic          =   0   'False
            Strikethrough   =   0   'False
         EndProperty
         Height          =   4815
         Left            =   360
         ScaleHeight     =   4815
         ScaleWidth      =   6495
         TabIndex        =   6
         Top             =   240
         Width           =   6495
      End
      Begin VB.VScrollBar vsbPage 
         Height          =   5355
         LargeChange     =   1000
         Left            =   7260
         SmallChange     =   200
         TabIndex        =   7
         Top             =   0
         Width           =   255
      End
   End
End
Attribute VB_Name = "frmPrintPreview"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

' Size of the page at 100 %, in twips.
Private Const PAGE_WIDTH As Single = 6495
Private Const PAGE_HEIGHT As Single = 8415
Private Const PAGE_MARGIN As Single = 240
Private Const LINES_PER_PAGE As Long = 48

Private mTitle As String
Private mLines() As String
Private mLineCount As Long

Public Sub SetContent(ByVal sTitle As String, ByVal sText As String)
    Dim vLines As Variant
    Dim i As Long

    mTitle = sTitle
    Caption = "Print Preview - " & sTitle
    vLines = Split(sText, vbCrLf)
    mLineCount = 0
    ReDim mLines(UBound(vLines) + 1)
    For i = 0 To UBound(vLines)
        If Len(vLines(i)) > 0 Then
            mLines(mLineCount) = vLines(i)
            mLineCount = mLineCount + 1
        End If
    Next i
    pnvPages.PageCount = (mLineCount + LINES_PER_PAGE - 1) \ LINES_PER_PAGE
    pnvPages.Page = 1
    DrawPage 1
End Sub

Private Sub Form_Load()
    cboZoom.AddItem "50%"
    cboZoom.AddItem "75%"
    cboZoom.AddItem "100%"
    cboZoom.ListIndex = 2
End Sub

Private Sub Form_Resize()
    If WindowState = vbMinimized Then Exit Sub
    If ScaleHeight < picViewport.Top + 600 Or ScaleWidth < 2000 Then Exit Sub
    picViewport.Move picViewport.Left, picViewport.Top, ScaleWidth - 2 * picViewport.Left, _
        ScaleHeight - picViewport.Top - 120
    vsbPage.Move picViewport.ScaleWidth - vsbPage.Width, 0, vsbPage.Width, picViewport.ScaleHeight
    UpdateScrollRange
End Sub

Private Function ZoomFactor() As Single
    ZoomFactor = Val(cboZoom.Text) / 100
    If ZoomFactor <= 0 Then ZoomFactor = 1
End Function

Private Sub UpdateScrollRange()
    Dim sngOver As Single

    sngOver = picPage.Height + 2 * PAGE_MARGIN - picViewport.ScaleHeight
    If sngOver > 0 Then
        vsbPage.Max = CInt(sngOver)
        vsbPage.Enabled = True
    Else
        vsbPage.Value = 0
        vsbPage.Max = 0
        vsbPage.Enabled = False
    End If
End Sub

Private Sub cboZoom_Click()
    picPage.Move picPage.Left, picPage.Top, PAGE_WIDTH * ZoomFactor(), PAGE_HEIGHT * ZoomFactor()
    picPage.FontSize = 9 * ZoomFactor()
    UpdateScrollRange
    If pnvPages.Page > 0 Then DrawPage pnvPages.Page
End Sub

Private Sub vsbPage_Change()
    picPage.Top = PAGE_MARGIN - vsbPage.Value
End Sub

Private Sub vsbPage_Scroll()
    vsbPage_Change
End Sub

Private Sub pnvPages_PageChanged(ByVal NewPage As Long)
    DrawPage NewPage
    vsbPage.Value = 0
End Sub

Private Sub DrawPage(ByVal lPage As Long)
    Dim i As Long
    Dim lLast As Long

    picPage.Cls
    picPage.CurrentX = PAGE_MARGIN * ZoomFactor()
    picPage.CurrentY = PAGE_MARGIN * ZoomFactor()
    picPage.FontBold = True
    picPage.Print mTitle
    picPage.FontBold = False
    picPage.Print
    lLast = lPage * LINES_PER_PAGE - 1
    If lLast > mLineCount - 1 Then lLast = mLineCount - 1
    For i = (lPage - 1) * LINES_PER_PAGE To lLast
        picPage.CurrentX = PAGE_MARGIN * ZoomFactor()
        picPage.Print mLines(i)
    Next i
End Sub

Public Sub PrintAll()
    Dim i As Long

    Printer.FontName = "Courier New"
    Printer.FontSize = 10
    Printer.FontBold = True
    Printer.Print mTitle
    Printer.FontBold = False
    Printer.Print
    For i = 0 To mLineCount - 1
        Printer.Print mLines(i)
    Next i
    Printer.EndDoc
End Sub

Private Sub cmdPrint_Click()
    If MsgBox("Print " & pnvPages.PageCount & " page(s) on " & Printer.DeviceName & "?", _
              vbQuestion + vbOKCancel, Caption) = vbOK Then PrintAll
End Sub

Private Sub cmdClose_Click()
    Unload Me
End Sub
