VERSION 5.00
Object = "{BDC217C8-ED16-11CD-956C-0000C04E4C0A}#1.1#0"; "TABCTL32.OCX"
Begin VB.Form frmReorder 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Reorder Stock"
   ClientHeight    =   5295
   ClientLeft      =   45
   ClientTop       =   330
   ClientWidth     =   7215
   HelpContextID   =   2030
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   ScaleHeight     =   5295
   ScaleWidth      =   7215
   ShowInTaskbar   =   0   'False
   StartUpPosition =   1  'CenterOwner
   Begin TabDlg.SSTab tabReorder 
      Height          =   4455
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   6975
      _ExtentX        =   12303
      _ExtentY        =   7858
      _Version        =   393216
      Tab             =   1
      Tabs            =   4
      TabsPerRow      =   2
      TabHeight       =   520
      TabCaption(0)   =   "&Low Stock"
      Tab(0).ControlEnabled=   0   'False
      Tab(0).Control(0)=   "lblLowItems"
      Tab(0).Control(1)=   "lstLowItems"
      Tab(0).Control(2)=   "cmdSelectAll"
      Tab(0).Control(3)=   "cmdSelectNone"
      Tab(0).ControlCount=   4
      TabCaption(1)   =   "&Suggested Order"
      Tab(1).ControlEnabled=   -1  'True
      Tab(1).Control(0)=   "lblSupplierFilter"
      Tab(1).Control(1)=   "cboSupplierFilter"
      Tab(1).Control(2)=   "lstSuggested"
      Tab(1).Control(3)=   "lblQuantity"
      Tab(1).Control(4)=   "txtQuantity"
      Tab(1).Control(5)=   "cmdUpdate"
      Tab(1).ControlCount=   6
      TabCaption(2)   =   "Se&nding"
      Tab(2).ControlEnabled=   0   'False
      Tab(2).Control(0)=   "fraSendBy"
      Tab(2).Control(1)=   "chkCopyToMe"
      Tab(2).Control(2)=   "chkOnePerSupplier"
      Tab(2).Control(3)=   "lblSendNote"
      Tab(2).ControlCount=   4
      TabCaption(3)   =   "&History"
      Tab(3).ControlEnabled=   0   'False
      Tab(3).Control(0)=   "lblHistoryPeriod"
      Tab(3).Control(1)=   "cboHistoryPeriod"
      Tab(3).Control(2)=   "lstHistory"
      Tab(3).ControlCount=   3
      Begin VB.Label lblLowItems 
         Caption         =   "Items &below their reorder level:"
         Height          =   255
         Left            =   -74760
         TabIndex        =   1
         Top             =   960
         Width           =   3735
      End
      Begin VB.ListBox lstLowItems 
         Height          =   2400
         Left            =   -74760
         Style           =   1  'Checkbox
         TabIndex        =   2
         Top             =   1260
         Width           =   6495
      End
      Begin VB.CommandButton cmdSelectAll 
         Caption         =   "Select &All"
         Height          =   375
         Left            =   -74760
         TabIndex        =   3
         Top             =   3840
         Width           =   1335
      End
      Begin VB.CommandButton cmdSelectNone 
         Caption         =   "Select N&one"
         Height          =   375
         Left            =   -73320
         TabIndex        =   4
         Top             =   3840
         Width           =   1335
      End
      Begin VB.Label lblSupplierFilter 
         Caption         =   "Su&pplier:"
         Height          =   255
         Left            =   240
         TabIndex        =   5
         Top             =   990
         Width           =   975
      End
      Begin VB.ComboBox cboSupplierFilter 
         Height          =   315
         Left            =   1320
         Style           =   2  'Dropdown List
         TabIndex        =   6
         Top             =   960
         Width           =   3135
      End
      Begin VB.ListBox lstSuggested 
         Height          =   1980
         Left            =   240
         TabIndex        =   7
         ToolTipText     =   "Items to order, with the quantity suggested for each"
         Top             =   1440
         Width           =   6495
      End
      Begin VB.Label lblQuantity 
         Caption         =   "&Quantity:"
         Height          =   255
         Left            =   240
         TabIndex        =   8
         Top             =   3630
         Width           =   975
      End
      Begin VB.TextBox txtQuantity 
         Alignment       =   1  'Right Justify
         Height          =   285
         Left            =   1320
         MaxLength       =   6
         TabIndex        =   9
         Top             =   3600
         Width           =   975
      End
      Begin VB.CommandButton cmdUpdate 
         Caption         =   "&Update"
         Height          =   375
         Left            =   2400
         TabIndex        =   10
         Top             =   3555
         Width           =   1215
      End
      Begin VB.Frame fraSendBy 
         Caption         =   "Send orders by"
         Height          =   1455
         Left            =   -74760
         TabIndex        =   11
         Top             =   960
         Width           =   3255
         Begin VB.OptionButton optSendBy 
            Caption         =   "&E-mail"
            Height          =   255
            Index           =   0
            Left            =   240
            TabIndex        =   12
            Top             =   300
            Value           =   -1  'True
            Width           =   2775
         End
         Begin VB.OptionButton optSendBy 
            Caption         =   "&Fax"
            Height          =   255
            Index           =   1
            Left            =   240
            TabIndex        =   13
            Top             =   660
            Width           =   2775
         End
         Begin VB.OptionButton optSendBy 
            Caption         =   "Pos&t"
            Height          =   255
            Index           =   2
            Left            =   240
            TabIndex        =   14
            Top             =   1020
            Width           =   2775
         End
      End
      Begin VB.CheckBox chkCopyToMe 
         Caption         =   "Send me a &copy"
         Height          =   255
         Left            =   -71280
         TabIndex        =   15
         Top             =   1080
         Width           =   3015
      End
      Begin VB.CheckBox chkOnePerSupplier 
         Caption         =   "One order per supplie&r"
         Height          =   255
         Left            =   -71280
         TabIndex        =   16
         Top             =   1440
         Value           =   1  'Checked
         Width           =   3015
      End
      Begin VB.Label lblSendNote 
         Caption         =   "The orders go out when you choose Create Orders. Suppliers without an e-mail address get theirs by post."
         ForeColor       =   &H00800000&
         Height          =   495
         Left            =   -74760
         TabIndex        =   17
         Top             =   2640
         Width           =   6495
      End
      Begin VB.Label lblHistoryPeriod 
         Caption         =   "Pe&riod:"
         Height          =   255
         Left            =   -74760
         TabIndex        =   18
         Top             =   990
         Width           =   975
      End
      Begin VB.ComboBox cboHistoryPeriod 
         Height          =   315
         Left            =   -73680
         Style           =   2  'Dropdown List
         TabIndex        =   19
         Top             =   960
         Width           =   2415
      End
      Begin VB.ListBox lstHistory 
         Height          =   2760
         Left            =   -74760
         TabIndex        =   20
         Top             =   1440
         Width           =   6495
      End
   End
   Begin VB.CommandButton cmdCreate 
      Caption         =   "&Create Orders"
      Height          =   375
      Left            =   4440
      TabIndex        =   21
      Top             =   4800
      Width           =   1335
   End
   Begin VB.CommandButton cmdClose 
      Cancel          =   -1  'True
      Caption         =   "Close"
      Height          =   375
      Left            =   5880
      TabIndex        =   22
      Top             =   4800
      Width           =   1215
   End
End
Attribute VB_Name = "frmReorder"
