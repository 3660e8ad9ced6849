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
