VERSION 5.00
Object = "{BDC217C8-ED16-11CD-956C-0000C04E4C0A}#1.1#0"; "TABCTL32.OCX"
Begin VB.Form frmOrder 
   Caption         =   "Order"
   ClientHeight    =   5535
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   7815
   LinkTopic       =   "Form1"
   MDIChild        =   -1  'True
   ScaleHeight     =   5535
   ScaleWidth      =   7815
   Begin VB.Label lblOrderNo 
      Caption         =   "Order No.:"
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   180
      Width           =   1215
   End
   Begin VB.TextBox txtOrderNo 
      BackColor       =   &H8000000F&
      Height          =   285
      Left            =   1440
      Locked          =   -1  'True
      TabIndex        =   1
      Top             =   150
      Width           =   1695
   End
   Begin VB.Label lblCustomer 
      Caption         =   "&Customer:"
      Height          =   255
      Left            =   3360
      TabIndex        =   2
      Top             =   180
      Width           =   975
   End
   Begin VB.ComboBox cboCustomer 
      Height          =   315
      Left            =   4440
      Sorted          =   -1  'True
      TabIndex        =   3
      ToolTipText     =   "Type a customer code or pick one from the list"
      Top             =   150
      Width           =   3255
   End
   Begin TabDlg.SSTab tabOrder 
      Height          =   4215
      Left            =   120
      TabIndex        =   4
      Top             =   600
      Width           =   7575
      _ExtentX        =   13361
      _ExtentY        =   7435
      _Version        =   393216
      Tabs            =   3
      TabsPerRow      =   3
      TabHeight       =   520
      TabCaption(0)   =   "&General"
      Tab(0).ControlEnabled=   -1  'True
      Tab(0).Control(0)=   "lblOrderDate"
      Tab(0).Control(1)=   "txtOrderDate"
      Tab(0).Control(2)=   "fraPriority"
      Tab(0).Control(3)=   "chkGift"
      Tab(0).Control(4)=   "chkConfirm"
      Tab(0).Control(5)=   "lblSalesRep"
      Tab(0).Control(6)=   "cboSalesRep"
      Tab(0).ControlCount=   7
      TabCaption(1)   =   "&Items"
      Tab(1).ControlEnabled=   0   'False
      Tab(1).Control(0)=   "lblProductHead"
      Tab(1).Control(1)=   "lblQtyHead"
      Tab(1).Control(2)=   "lblPriceHead"
      Tab(1).Control(3)=   "txtItem(0)"
      Tab(1).Control(4)=   "txtQty(0)"
      Tab(1).Control(5)=   "lblPrice(0)"
      Tab(1).Control(6)=   "txtItem(1)"
      Tab(1).Control(7)=   "txtQty(1)"
      Tab(1).Control(8)=   "lblPrice(1)"
      Tab(1).Control(9)=   "txtItem(2)"
      Tab(1).Control(10)=   "txtQty(2)"
      Tab(1).Control(11)=   "lblPrice(2)"
      Tab(1).Control(12)=   "cmdClearLines"
      Tab(1).Control(13)=   "lblTotal"
      Tab(1).Control(14)=   "txtTotal"
      Tab(1).ControlCount=   15
      TabCaption(2)   =   "&Delivery"
      Tab(2).ControlEnabled=   0   'False
      Tab(2).Control(0)=   "lblDelivery"
      Tab(2).Control(1)=   "dtpDelivery"
      Tab(2).Control(2)=   "fraShipTo"
      Tab(2).ControlCount=   3
      Begin VB.Label lblOrderDate 
         Caption         =   "Order &date:"
         Height          =   255
         Left            =   240
         TabIndex        =   5
         Top             =   660
         Width           =   1215
      End
      Begin VB.TextBox txtOrderDate 
         Height          =   285
         Left            =   1560
         TabIndex        =   6
         ToolTipText     =   "The date the customer placed the order"
         Top             =   630
         Width           =   1455
      End
      Begin VB.Frame fraPriority 
         Caption         =   "Priority"
         Height          =   1335
         Left            =   240
         TabIndex        =   7
         Top             =   1080
         Width           =   3135
         Begin VB.OptionButton optPriority 
            Caption         =   "&Normal"
            Height          =   255
            Index           =   0
            Left            =   240
            TabIndex        =   8
            Top             =   300
            Value           =   -1  'True
            Width           =   2655
         End
         Begin VB.OptionButton optPriority 
            Caption         =   "&Urgent"
            Height          =   255
            Index           =   1
            Left            =   240
            TabIndex        =   9
            Top             =   600
            Width           =   2655
         End
         Begin VB.OptionButton optPriority 
            Caption         =   "&Express (surcharge)"
            Height          =   255
            Index           =   2
            Left            =   240
            TabIndex        =   10
            ToolTipText     =   "Delivery next working day for a fixed surcharge"
            Top             =   900
            Width           =   2655
         End
      End
      Begin VB.CheckBox chkGift 
         Caption         =   "Gift &wrap"
         Height          =   255
         Left            =   3720
         TabIndex        =   11
         Top             =   1200
         Width           =   3495
      End
      Begin VB.CheckBox chkConfirm 
         Caption         =   "Send confirmation &e-mail"
         Height          =   255
         Left            =   3720
         TabIndex        =   12
         Top             =   1560
         Value           =   1  'Checked
         Width           =   3495
      End
      Begin VB.Label lblSalesRep 
         Caption         =   "Sales &rep:"
         Height          =   255
         Left            =   240
         TabIndex        =   13
         Top             =   2640
         Width           =   1215
      End
      Begin VB.ComboBox cboSalesRep 
         Height          =   315
         Left            =   1560
         Style           =   2  'Dropdown List
         TabIndex        =   14
         Top             =   2610
         Width           =   2535
      End
      Begin VB.Label lblProductHead 
         Caption         =   "Product code"
         BeginProperty Font {0BE35203-8F91-11CE-9DE3-00AA004BB851} 
            Name            =   "MS Sans Serif"
            Size            =   8.25
            Charset         =   0
            Weight          =   700
            Underline       =   0   'False
            Italic          =   0   'False
            Strikethrough   =   0   'False
         EndProperty
         Height          =   255
         Left            =   -74760
         TabIndex        =   15
         Top             =   660
         Width           =   3015
      End
      Begin VB.Label lblQtyHead 
         Alignment       =   1  'Right Justify
         Caption         =   "Quantity"
         BeginProperty Font {0BE35203-8F91-11CE-9DE3-00AA004BB851} 
            Name            =   "MS Sans Serif"
            Size            =   8.25
            Charset         =   0
            Weight          =   700
            Underline       =   0   'False
            Italic          =   0   'False
            Strikethrough   =   0   'False
         EndProperty
         Height          =   255
         Left            =   -71640
         TabIndex        =   16
         Top             =   660
         Width           =   975
      End
      Begin VB.Label lblPriceHead 
         Alignment       =   1  'Right Justify
         Caption         =   "Unit price (€)"
         BeginProperty Font {0BE35203-8F91-11CE-9DE3-00AA004BB851} 
            Name            =   "MS Sans Serif"
            Size            =   8.25
            Charset         =   0
            Weight          =   700
            Underline       =   0   'False
            Italic          =   0   'False
            Strikethrough   =   0   'False
         EndProperty
         Height          =   255
         Left            =   -70560
         TabIndex        =   17
         Top             =   660
         Width           =   1455
      End
      Begin VB.TextBox txtItem 
         Height          =   285
         Index           =   0
         Left            =   -74760
         MaxLength       =   12
         TabIndex        =   18
         Top             =   960
         Width           =   3015
      End
      Begin VB.TextBox txtQty 
         Alignment       =   1  'Right Justify
         Height          =   285
         Index           =   0
         Left            =   -71640
         MaxLength       =   5
         TabIndex        =   19
         Top             =   960
         Width           =   975
      End
      Begin VB.Label lblPrice 
         Alignment       =   1  'Right Justify
         Height          =   255
         Index           =   0
         Left            =   -70560
         TabIndex        =   20
         Top             =   990
         Width           =   1455
      End
      Begin VB.TextBox txtItem 
         Height          =   285
         Index           =   1
         Left            =   -74760
         MaxLength       =   12
         TabIndex        =   21
         Top             =   1320
         Width           =   3015
      End
      Begin VB.TextBox txtQty 
         Alignment       =   1  'Right Justify
         Height          =   285
         Index           =   1
         Left            =   -71640
         MaxLength       =   5
         TabIndex        =   22
         Top             =   1320
         Width           =   975
      End
      Begin VB.Label lblPrice 
         Alignment       =   1  'Right Justify
         Height          =   255
         Index           =   1
         Left            =   -70560
         TabIndex        =   23
         Top             =   1350
         Width           =   1455
      End
      Begin VB.TextBox txtItem 
         Height          =   285
         Index           =   2
         Left            =   -74760
         MaxLength       =   12
         TabIndex        =   24
         Top             =   1680
         Width           =   3015
      End
      Begin VB.TextBox txtQty 
         Alignment       =   1  'Right Justify
         Height          =   285
         Index           =   2
         Left            =   -71640
         MaxLength       =   5
         TabIndex        =   25
         Top             =   1680
         Width           =   975
      End
      Begin VB.Label lblPrice 
         Alignment       =   1  'Right Justify
         Height          =   255
         Index           =   2
         Left            =   -70560
         TabIndex        =   26
         Top             =   1710
         Width           =   1455
      End
      Begin VB.CommandButton cmdClearLines 
         Caption         =   "C&lear Lines"
         Height          =   375
         Left            =   -74760
         TabIndex        =   27
         Top             =   2160
         Width           =   1455
      End
      Begin VB.Label lblTotal 
         Alignment       =   1  'Right Justify
         Caption         =   "Total:"
         Height          =   255
         Left            =   -71640
         TabIndex        =   28
         Top             =   2220
         Width           =   975
      End
      Begin VB.TextBox txtTotal 
         Alignment       =   1  'Right Justify
         BackColor       =   &H8000000F&
         Height          =   285
         Left            =   -70560
         Locked          =   -1  'True
         TabIndex        =   29
         Top             =   2190
         Width           =   1455
      End
      Begin VB.Label lblDelivery 
         Caption         =   "Deli&very date:"
         Height          =   255
         Left            =   -74760
         TabIndex        =   30
         Top             =   660
         Width           =   1335
      End
      Begin OrderDesk.ctlDatePicker dtpDelivery 
         Height          =   315
         Left            =   -73320
         TabIndex        =   31
         ToolTipText     =   "The day the goods should reach the customer"
         Top             =   630
         Width           =   2055
         _ExtentX        =   3625
         _ExtentY        =   556
      End
      Begin VB.Frame fraShipTo 
         Caption         =   "Ship to"
         Height          =   2295
         Left            =   -74760
         TabIndex        =   32
         Top             =   1080
         Width           =   7095
         Begin VB.CheckBox chkSameAddress 
            Caption         =   "Same as the customer's &address"
            Height          =   255
            Left            =   120
            TabIndex        =   33
            Top             =   300
            Value           =   1  'Checked
            Width           =   3495
         End
         Begin VB.PictureBox picAddress 
            BorderStyle     =   0  'None
            Enabled         =   0   'False
            Height          =   1515
            Left            =   120
            ScaleHeight     =   1515
            ScaleWidth      =   6855
            TabIndex        =   34
            Top             =   660
            Width           =   6855
            Begin VB.Label lblShipName 
               Caption         =   "Name:"
               Height          =   255
               Left            =   0
               TabIndex        =   35
               Top             =   30
               Width           =   1095
            End
            Begin VB.TextBox txtShipName 
               Height          =   285
               Left            =   1200
               TabIndex        =   36
               Top             =   0
               Width           =   5535
            End
            Begin VB.Label lblShipStreet 
               Caption         =   "Street:"
               Height          =   255
               Left            =   0
               TabIndex        =   37
               Top             =   390
               Width           =   1095
            End
            Begin VB.TextBox txtShipStreet 
               Height          =   285
               Left            =   1200
               TabIndex        =   38
               Top             =   360
               Width           =   5535
            End
            Begin VB.Label lblShipCity 
               Caption         =   "City:"
               Height          =   255
               Left            =   0
               TabIndex        =   39
               Top             =   750
               Width           =   1095
            End
            Begin VB.TextBox txtShipCity 
               Height          =   285
               Left            =   1200
               TabIndex        =   40
               Top             =   720
               Width           =   2535
            End
            Begin VB.Label lblShipPostcode 
               Caption         =   "Postcode:"
               Height          =   255
               Left            =   3840
               TabIndex        =   41
               Top             =   750
               Width           =   855
            End
            Begin VB.TextBox txtShipPostcode 
               Height          =   285
               Left            =   4800
               TabIndex        =   42
               Top             =   720
               Width           =   1935
            End
            Begin VB.Label lblCarrier 
               Caption         =   "Carrier:"
               Height          =   255
               Left            =   0
               TabIndex        =   43
               Top             =   1110
               Width           =   1095
            End
            Begin VB.ComboBox cboCarrier 
               Height          =   315
               Left            =   1200
               Style           =   2  'Dropdown List
               TabIndex        =   44
               Top             =   1080
               Width           =   2535
            End
         End
      End
   End
   Begin VB.CommandButton cmdSave 
      Caption         =   "&Save"
      Default         =   -1  'True
      Height          =   375
      Left            =   5160
      TabIndex        =   45
      Top             =   5040
      Width           =   1215
   End
   Begin VB.CommandButton cmdClose 
      Cancel          =   -1  'True
      Caption         =   "Close"
      Height          =   375
      Left            =   6480
      TabIndex        =   46
      Top             =   5040
      Width           =   1215
   End
End
Attribute VB_Name = "frmOrder"
