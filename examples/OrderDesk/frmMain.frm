VERSION 5.00
Object = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"; "MSCOMCTL.OCX"
Begin VB.MDIForm frmMain 
   BackColor       =   &H8000000C&
   Caption         =   "Order Desk"
   ClientHeight    =   6690
   ClientLeft      =   165
   ClientTop       =   855
   ClientWidth     =   10320
   HelpContextID   =   1000
   LinkTopic       =   "MDIForm1"
   StartUpPosition =   3  'Windows Default
   Begin MSComctlLib.ImageList imlToolbar 
      Left            =   9480
      Top             =   600
      _ExtentX        =   1005
      _ExtentY        =   1005
      BackColor       =   -2147483643
      ImageWidth      =   16
      ImageHeight     =   16
      MaskColor       =   12632256
      _Version        =   393216
   End
   Begin MSComctlLib.Toolbar tbrMain 
      Align           =   1  'Align Top
      Height          =   420
      Left            =   0
      TabIndex        =   0
      Top             =   0
      Width           =   10320
      _ExtentX        =   18203
      _ExtentY        =   741
      ButtonWidth     =   609
      ButtonHeight    =   582
      Appearance      =   1
      ImageList       =   "imlToolbar"
      _Version        =   393216
      BeginProperty Buttons {66833FE8-8583-11D1-B16A-00C0F0283628} 
         NumButtons      =   8
         BeginProperty Button1 {66833FEA-8583-11D1-B16A-00C0F0283628} 
            Key             =   "NewOrder"
            Object.ToolTipText     =   "New order"
            ImageIndex      =   1
         EndProperty
         BeginProperty Button2 {66833FEA-8583-11D1-B16A-00C0F0283628} 
            Key             =   "Customers"
            Object.ToolTipText     =   "Customers"
            ImageIndex      =   2
         EndProperty
         BeginProperty Button3 {66833FEA-8583-11D1-B16A-00C0F0283628} 
            Key             =   "Find"
            Object.ToolTipText     =   "Find orders"
            ImageIndex      =   3
         EndProperty
         BeginProperty Button4 {66833FEA-8583-11D1-B16A-00C0F0283628} 
            Style           =   3
         EndProperty
         BeginProperty Button5 {66833FEA-8583-11D1-B16A-00C0F0283628} 
            Key             =   "Print"
            Object.ToolTipText     =   "Print the active order"
            ImageIndex      =   4
         EndProperty
         BeginProperty Button6 {66833FEA-8583-11D1-B16A-00C0F0283628} 
            Key             =   "Options"
            Object.ToolTipText     =   "Options"
            ImageIndex      =   5
         EndProperty
         BeginProperty Button7 {66833FEA-8583-11D1-B16A-00C0F0283628} 
            Key             =   "Help"
            Object.ToolTipText     =   "Help contents"
            ImageIndex      =   6
         EndProperty
         BeginProperty Button8 {66833FEA-8583-11D1-B16A-00C0F0283628} 
            Key             =   "About"
            Object.ToolTipText     =   "About Order Desk"
            ImageIndex      =   7
         EndProperty
      EndProperty
   End
   Begin MSComctlLib.StatusBar sbrMain 
      Align           =   2  'Align Bottom
      Height          =   375
      Left            =   0
      TabIndex        =   1
      Top             =   6315
      Width           =   10320
      _ExtentX        =   18203
      _ExtentY        =   661
      _Version        =   393216
      BeginProperty Panels {8E3867A5-8586-11D1-B16A-00C0F0283628} 
         NumPanels       =   3
         BeginProperty Panel1 {8E3867AB-8586-11D1-B16A-00C0F0283628} 
            AutoSize        =   1
            Object.Width           =   13785
            Text            =   "Ready"
            TextSave        =   "Ready"
            Key             =   "Status"
         EndProperty
         BeginProperty Panel2 {8E3867AB-8586-11D1-B16A-00C0F0283628} 
            Style           =   1
            Alignment       =   1
            AutoSize        =   2
            Enabled         =   0   'False
            Object.Width           =   1058
            MinWidth        =   1058
            TextSave        =   "CAPS"
         EndProperty
         BeginProperty Panel3 {8E3867AB-8586-11D1-B16A-00C0F0283628} 
            Style           =   6
            Alignment       =   1
            AutoSize        =   2
            Object.Width           =   1773
            MinWidth        =   1764
            TextSave        =   "21/11/2024"
         EndProperty
      EndProperty
   End
   Begin VB.Menu mnuFile 
      Caption         =   "&File"
      Begin VB.Menu mnuFileNew 
         Caption         =   "&New Order"
         HelpContextID   =   1101
         Shortcut        =   ^N
      End
      Begin VB.Menu mnuFileOpen 
         Caption         =   "&Open Order..."
         Shortcut        =   ^O
      End
      Begin VB.Menu mnuFileSep1 
         Caption         =   "-"
      End
      Begin VB.Menu mnuFileCustomers 
         Caption         =   "&Customers..."
      End
      Begin VB.Menu mnuFileSep2 
         Caption         =   "-"
      End
      Begin VB.Menu mnuFileExport 
         Caption         =   "&Export Orders"
         Begin VB.Menu mnuFileExportText 
            Caption         =   "As &Text File..."
         End
         Begin VB.Menu mnuFileExportCsv 
            Caption         =   "As &CSV File..."
         End
      End
      Begin VB.Menu mnuFilePrint 
         Caption         =   "&Print..."
         Shortcut        =   ^P
      End
      Begin VB.Menu mnuFilePrintSetup 
         Caption         =   "Print Set&up..."
      End
      Begin VB.Menu mnuFileSep3 
         Caption         =   "-"
      End
      Begin VB.Menu mnuFileMRU 
         Caption         =   "Recent"
         Index           =   0
         Visible         =   0   'False
      End
      Begin VB.Menu mnuFileSepMRU 
         Caption         =   "-"
         Visible         =   0   'False
      End
      Begin VB.Menu mnuFileSignOut 
         Caption         =   "Sign &Out"
      End
      Begin VB.Menu mnuFileExit 
         Caption         =   "E&xit"
      End
   End
   Begin VB.Menu mnuEdit 
      Caption         =   "&Edit"
      Begin VB.Menu mnuEditCut 
         Caption         =   "Cu&t"
         Shortcut        =   ^X
      End
      Begin VB.Menu mnuEditCopy 
         Caption         =   "&Copy"
         Shortcut        =   ^C
      End
      Begin VB.Menu mnuEditPaste 
         Caption         =   "&Paste"
         Shortcut        =   ^V
      End
      Begin VB.Menu mnuEditDelete 
         Caption         =   "&Delete"
         Shortcut        =   {DEL}
      End
      Begin VB.Menu mnuEditSep1 
         Caption         =   "-"
      End
      Begin VB.Menu mnuEditFind 
         Caption         =   "&Find..."
         Shortcut        =   ^F
      End
      Begin VB.Menu mnuEditSep2 
         Caption         =   "-"
      End
      Begin VB.Menu mnuEditOptions 
         Caption         =   "&Options..."
         HelpContextID   =   1060
      End
   End
   Begin VB.Menu mnuOrders 
      Caption         =   "&Orders"
      Begin VB.Menu mnuOrdersNew 
         Caption         =   "&New Order"
      End
      Begin VB.Menu mnuOrdersFind 
         Caption         =   "&Find Orders..."
         Shortcut        =   {F3}
      End
      Begin VB.Menu mnuOrdersSep1 
         Caption         =   "-"
      End
      Begin VB.Menu mnuOrdersShow 
         Caption         =   "&Show"
         Begin VB.Menu mnuOrdersStatus 
            Caption         =   "&Open Orders"
            Checked         =   -1  'True
            Index           =   0
         End
         Begin VB.Menu mnuOrdersStatus 
            Caption         =   "&Shipped Orders"
            Index           =   1
         End
         Begin VB.Menu mnuOrdersStatus 
            Caption         =   "&Closed Orders"
            Index           =   2
         End
      End
      Begin VB.Menu mnuOrdersReports 
         Caption         =   "&Reports"
         Begin VB.Menu mnuOrdersReportsPeriod 
            Caption         =   "By &Period"
            Begin VB.Menu mnuOrdersReportsDaily 
               Caption         =   "&Daily Summary"
            End
            Begin VB.Menu mnuOrdersReportsWeekly 
               Caption         =   "&Weekly Summary"
            End
            Begin VB.Menu mnuOrdersReportsMonthly 
               Caption         =   "&Monthly Summary"
            End
         End
         Begin VB.Menu mnuOrdersReportsCustomer 
            Caption         =   "By &Customer..."
         End
      End
      Begin VB.Menu mnuOrdersSep2 
         Caption         =   "-"
      End
      Begin VB.Menu mnuOrdersRefresh 
         Caption         =   "Re&fresh"
         Shortcut        =   {F5}
      End
   End
   Begin VB.Menu mnuWindow 
      Caption         =   "&Window"
      WindowList      =   -1  'True
      Begin VB.Menu mnuWindowCascade 
         Caption         =   "&Cascade"
      End
      Begin VB.Menu mnuWindowTileH 
         Caption         =   "Tile &Horizontally"
      End
      Begin VB.Menu mnuWindowTileV 
         Caption         =   "Tile &Vertically"
      End
      Begin VB.Menu mnuWindowArrange 
         Caption         =   "&Arrange Icons"
      End
   End
   Begin VB.Menu mnuHelp 
      Caption         =   "&Help"
      Begin VB.Menu mnuHelpContents 
         Caption         =   "&Contents"
         Shortcut        =   {F1}
      End
      Begin VB.Menu mnuHelpIndex 
         Caption         =   "&Search for Help On..."
      End
      Begin VB.Menu mnuHelpSep1 
         Caption         =   "-"
      End
      Begin VB.Menu mnuHelpAbout 
         Caption         =   "&About Order Desk..."
      End
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Declare Function HtmlHelp Lib "hhctrl.ocx" Alias "HtmlHelpA" _
    (ByVal hwndCaller As Long, ByVal pszFile As String, _
     ByVal uCommand As Long, ByVal dwData As Long) As Long

Private Const HH_DISPLAY_TOC As Long = &H1
Private Const HH_DISPLAY_INDEX As Long = &H2

Private Const MRU_MAX As Integer = 4

Private Sub MDIForm_Load()
    Dim sLast As String

    sbrMain.Panels("Status").Text = "Signed in as " & gUserName
    sLast = GetSetting(App.Title, "Recent", "Order0", "")
    If Len(sLast) > 0 Then AddToRecent sLast
End Sub

Private Sub MDIForm_QueryUnload(Cancel As Integer, UnloadMode As Integer)
    If UnloadMode = vbFormControlMenu Then
        If MsgBox("Close Order Desk?", vbQuestion + vbYesNo, App.Title) = vbNo Then
            Cancel = True
        End If
    End If
End Sub

Private Sub tbrMain_ButtonClick(ByVal Button As MSComctlLib.Button)
    Select Case Button.Key
        Case "NewOrder"
            mnuFileNew_Click
        Case "Customers"
            mnuFileCustomers_Click
        Case "Find"
            mnuEditFind_Click
        Case "Print"
            mnuFilePrint_Click
        Case "Options"
            mnuEditOptions_Click
        Case "Help"
            mnuHelpContents_Click
        Case "About"
            mnuHelpAbout_Click
    End Select
End Sub

Public Sub SetStatus(ByVal sText As String)
    sbrMain.Panels("Status").Text = sText
End Sub

Public Sub AddToRecent(ByVal sOrderNo As String)
    Dim i As Integer

    For i = 0 To mnuFileMRU.UBound
        If mnuFileMRU(i).Caption = sOrderNo And mnuFileMRU(i).Visible Then Exit Sub
    Next i
    If mnuFileMRU(0).Visible Then
        If mnuFileMRU.UBound < MRU_MAX - 1 Then Load mnuFileMRU(mnuFileMRU.UBound + 1)
        For i = mnuFileMRU.UBound To 1 Step -1
            mnuFileMRU(i).Caption = mnuFileMRU(i - 1).Caption
            mnuFileMRU(i).Visible = True
        Next i
    End If
    mnuFileMRU(0).Caption = sOrderNo
    mnuFileMRU(0).Visible = True
    mnuFileSepMRU.Visible = True
    SaveSetting App.Title, "Recent", "Order0", sOrderNo
End Sub

Private Sub OpenOrder(ByVal sOrderNo As String)
    Dim oOrder As clsOrder
    Dim frm As frmOrder

    Set oOrder = FindOrder(sOrderNo)
    If oOrder Is Nothing Then
        MsgBox "Order " & sOrderNo & " was not found.", vbExclamation, App.Title
        Exit Sub
    End If
    Set frm = New frmOrder
    Set frm.Order = oOrder
    frm.Show
End Sub

Private Sub mnuFileNew_Click()
    Dim frm As frmOrder

    Set frm = New frmOrder
    Set frm.Order = NewOrder()
    frm.Show
    AddToRecent frm.Order.OrderNo
End Sub

Private Sub mnuFileOpen_Click()
    Dim sOrderNo As String

    sOrderNo = InputBox("Order number:", "Open Order")
    If Len(sOrderNo) > 0 Then OpenOrder sOrderNo
End Sub

Private Sub mnuFileMRU_Click(Index As Integer)
    OpenOrder mnuFileMRU(Index).Caption
End Sub

Private Sub mnuFileCustomers_Click()
    Dim frm As frmCustomer

    Set frm = New frmCustomer
    frm.Show
End Sub

Private Sub mnuFileExportText_Click()
    ExportOrders App.Path & "\orders.txt", vbTab
End Sub

Private Sub mnuFileExportCsv_Click()
    ExportOrders App.Path & "\orders.csv", ","
End Sub

Private Sub ExportOrders(ByVal sFile As String, ByVal sSeparator As String)
    Dim iFile As Integer
    Dim oOrder As clsOrder

    On Error GoTo ExportFailed
    iFile = FreeFile
    Open sFile For Output As #iFile
    Print #iFile, "Order" & sSeparator & "Customer" & sSeparator & "Date" & sSeparator & "Total"
    For Each oOrder In gOrders
        Print #iFile, oOrder.OrderNo & sSeparator & oOrder.CustomerCode & sSeparator & _
            Format$(oOrder.OrderDate, "yyyy-mm-dd") & sSeparator & FormatMoney(oOrder.Total)
    Next oOrder
    Close #iFile
    SetStatus gOrders.Count & " orders written to " & sFile
    Exit Sub

ExportFailed:
    If iFile <> 0 Then Close #iFile
    MsgBox "The orders could not be exported: " & Err.Description, vbCritical, App.Title
End Sub

Private Sub mnuFilePrint_Click()
    If ActiveForm Is Nothing Then Exit Sub
    If TypeOf ActiveForm Is frmOrder Then
        ActiveForm.PrintOrder
    Else
        MsgBox "Open an order to print it.", vbInformation, App.Title
    End If
End Sub

Private Sub mnuFilePrintSetup_Click()
    MsgBox "Orders print on " & Printer.DeviceName & ".", vbInformation, App.Title
End Sub

Private Sub mnuFileSignOut_Click()
    Dim frm As Form

    For Each frm In Forms
        If frm.Name <> Me.Name Then Unload frm
    Next frm
    gUserName = ""
    frmLogin.Show vbModal, Me
    If Len(gUserName) = 0 Then
        Unload Me
    Else
        SetStatus "Signed in as " & gUserName
    End If
End Sub

Private Sub mnuFileExit_Click()
    Unload Me
End Sub

Private Function ActiveTextBox() As TextBox
    If ActiveForm Is Nothing Then Exit Function
    If TypeOf ActiveForm.ActiveControl Is TextBox Then Set ActiveTextBox = ActiveForm.ActiveControl
End Function

Private Sub mnuEditCut_Click()
    Dim txt As TextBox

    Set txt = ActiveTextBox()
    If txt Is Nothing Then Exit Sub
    Clipboard.SetText txt.SelText
    txt.SelText = ""
End Sub

Private Sub mnuEditCopy_Click()
    Dim txt As TextBox

    Set txt = ActiveTextBox()
    If Not txt Is Nothing Then Clipboard.SetText txt.SelText
End Sub

Private Sub mnuEditPaste_Click()
    Dim txt As TextBox

    Set txt = ActiveTextBox()
    If Not txt Is Nothing Then txt.SelText = Clipboard.GetText(vbCFText)
End Sub

Private Sub mnuEditDelete_Click()
    Dim txt As TextBox

    Set txt = ActiveTextBox()
    If Not txt Is Nothing Then txt.SelText = ""
End Sub

Private Sub mnuEditFind_Click()
    frmSearch.Show
    frmSearch.SetFocus
End Sub

Private Sub mnuEditOptions_Click()
    frmOptions.Show vbModal, Me
End Sub

Private Sub mnuOrdersNew_Click()
    mnuFileNew_Click
End Sub

Private Sub mnuOrdersFind_Click()
    mnuEditFind_Click
End Sub

Private Sub mnuOrdersStatus_Click(Index As Integer)
    Dim i As Integer

    For i = mnuOrdersStatus.LBound To mnuOrdersStatus.UBound
        mnuOrdersStatus(i).Checked = (i = Index)
    Next i
    SetStatus "Showing " & LCase$(Replace(mnuOrdersStatus(Index).Caption, "&", ""))
End Sub

Private Sub mnuOrdersReportsDaily_Click()
    ShowSummary "Daily", 1
End Sub

Private Sub mnuOrdersReportsWeekly_Click()
    ShowSummary "Weekly", 7
End Sub

Private Sub mnuOrdersReportsMonthly_Click()
    ShowSummary "Monthly", 30
End Sub

Private Sub ShowSummary(ByVal sTitle As String, ByVal iDays As Integer)
    Dim oOrder As clsOrder
    Dim lCount As Long
    Dim cTotal As Currency

    For Each oOrder In gOrders
        If DateDiff("d", oOrder.OrderDate, Date) < iDays Then
            lCount = lCount + 1
            cTotal = cTotal + oOrder.Total
        End If
    Next oOrder
    MsgBox lCount & " orders, " & FormatMoney(cTotal) & " in total.", vbInformation, sTitle & " Summary"
End Sub

Private Sub mnuOrdersReportsCustomer_Click()
    Dim sCode As String
    Dim oOrder As clsOrder
    Dim cTotal As Currency

    sCode = UCase$(InputBox("Customer code:", "Orders by Customer"))
    If Len(sCode) = 0 Then Exit Sub
    For Each oOrder In gOrders
        If oOrder.CustomerCode = sCode Then cTotal = cTotal + oOrder.Total
    Next oOrder
    MsgBox "Orders of " & sCode & ": " & FormatMoney(cTotal), vbInformation, App.Title
End Sub

Private Sub mnuOrdersRefresh_Click()
    SetStatus gOrders.Count & " orders"
End Sub

Private Sub mnuWindowCascade_Click()
    Me.Arrange vbCascade
End Sub

Private Sub mnuWindowTileH_Click()
    Me.Arrange vbTileHorizontal
End Sub

Private Sub mnuWindowTileV_Click()
    Me.Arrange vbTileVertical
End Sub

Private Sub mnuWindowArrange_Click()
    Me.Arrange vbArrangeIcons
End Sub

Private Sub mnuHelpContents_Click()
    HtmlHelp Me.hWnd, App.HelpFile, HH_DISPLAY_TOC, 0
End Sub

Private Sub mnuHelpIndex_Click()
    HtmlHelp Me.hWnd, App.HelpFile, HH_DISPLAY_INDEX, 0
End Sub

Private Sub mnuHelpAbout_Click()
    frmAbout.Show vbModal, Me
End Sub
