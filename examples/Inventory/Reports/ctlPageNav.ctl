VERSION 5.00
Begin VB.UserControl ctlPageNav 
   ClientHeight    =   375
   ClientLeft      =   0
   ClientTop       =   0
   ClientWidth     =   2895
   ScaleHeight     =   375
   ScaleWidth      =   2895
   Begin VB.CommandButton cmdFirst 
      Caption         =   "|<"
      Height          =   375
      Left            =   0
      TabIndex        =   0
      ToolTipText     =   "First page"
      Top             =   0
      Width           =   375
   End
   Begin VB.CommandButton cmdPrev 
      Caption         =   "<"
      Height          =   375
      Left            =   375
      TabIndex        =   1
      ToolTipText     =   "Previous page"
      Top             =   0
      Width           =   375
   End
   Begin VB.Label lblPage 
      Alignment       =   2  'Center
      Caption         =   "Page 1 of 1"
      Height          =   255
      Left            =   795
      TabIndex        =   2
      Top             =   60
      Width           =   1305
   End
   Begin VB.CommandButton cmdNext 
      Caption         =   ">"
      Height          =   375
      Left            =   2145
      TabIndex        =   3
      ToolTipText     =   "Next page"
      Top             =   0
      Width           =   375
   End
   Begin VB.CommandButton cmdLast 
      Caption         =   ">|"
      Height          =   375
      Left            =   2520
      TabIndex        =   4
      ToolTipText     =   "Last page"
      Top             =   0
      Width           =   375
   End
End
Attribute VB_Name = "ctlPageNav"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = True
Attribute VB_PredeclaredId = False
Attribute VB_Exposed = False
Option Explicit

Public Event PageChanged(ByVal NewPage As Long)

Private mPage As Long
Private mPageCount As Long

Public Property Get Page() As Long
Attribute Page.VB_UserMemId = 0
    Page = mPage
End Property

Public Property Let Page(ByVal lNew As Long)
    If lNew > mPageCount Then lNew = mPageCount
    If lNew < 1 Then lNew = 1
    If lNew = mPage Then Exit Property
    mPage = lNew
    UpdateButtons
    PropertyChanged "Page"
    RaiseEvent PageChanged(mPage)
End Property

Public Property Get PageCount() As Long
    PageCount = mPageCount
End Property

Public Property Let PageCount(ByVal lNew As Long)
    If lNew < 1 Then lNew = 1
    mPageCount = lNew
    If mPage > mPageCount Then mPage = mPageCount
    If mPage < 1 Then mPage = 1
    UpdateButtons
    PropertyChanged "PageCount"
End Property

Private Sub UpdateButtons()
    lblPage.Caption = "Page " & mPage & " of " & mPageCount
    cmdFirst.Enabled = mPage > 1
    cmdPrev.Enabled = mPage > 1
    cmdNext.Enabled = mPage < mPageCount
    cmdLast.Enabled = mPage < mPageCount
End Sub

Private Sub cmdFirst_Click()
    Page = 1
End Sub

Private Sub cmdPrev_Click()
    Page = mPage - 1
End Sub

Private Sub cmdNext_Click()
    Page = mPage + 1
End Sub

Private Sub cmdLast_Click()
    Page = mPageCount
End Sub

Private Sub UserControl_InitProperties()
    mPage = 1
    mPageCount = 1
    UpdateButtons
End Sub

Private Sub UserControl_ReadProperties(PropBag As PropertyBag)
    mPageCount = PropBag.ReadProperty("PageCount", 1)
    mPage = PropBag.ReadProperty("Page", 1)
    UpdateButtons
End Sub

Private Sub UserControl_WriteProperties(PropBag As PropertyBag)
    PropBag.WriteProperty "PageCount", mPageCount, 1
    PropBag.WriteProperty "Page", mPage, 1
End Sub
