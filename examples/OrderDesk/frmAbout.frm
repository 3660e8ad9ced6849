VERSION 5.00
Begin VB.Form frmAbout 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "About Order Desk"
   ClientHeight    =   3195
   ClientLeft      =   2340
   ClientTop       =   1935
   ClientWidth     =   5655
   ClipControls    =   0   'False
   LinkTopic       =   "Form2"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   ScaleHeight     =   3195
   ScaleWidth      =   5655
   ShowInTaskbar   =   0   'False
   StartUpPosition =   1  'CenterOwner
   Begin VB.Image imgLogo 
      BorderStyle     =   1  'Fixed Single
      Height          =   720
      Left            =   240
      Stretch         =   -1  'True
      Top             =   240
      Width           =   720
   End
   Begin VB.Label lblTitle 
      Caption         =   "Order Desk"
      BeginProperty Font {0BE35203-8F91-11CE-9DE3-00AA004BB851} 
         Name            =   "Arial"
         Size            =   14.25
         Charset         =   0
         Weight          =   700
         Underline       =   0   'False
         Italic          =   0   'False
         Strikethrough   =   0   'False
      EndProperty
      ForeColor       =   &H00000000&
      Height          =   405
      Left            =   1200
      TabIndex        =   0
      Top             =   240
      Width           =   4215
   End
   Begin VB.Label lblVersion 
      Caption         =   "Version 1.2.0"
      Height          =   255
      Left            =   1200
      TabIndex        =   1
      Top             =   720
      Width           =   4215
   End
   Begin VB.Label lblDescription 
      Caption         =   "Takes customer orders, prices them and keeps track of their delivery."
      ForeColor       =   &H00000000&
      Height          =   495
      Left            =   1200
      TabIndex        =   2
      Top             =   1080
      Width           =   4215
   End
   Begin VB.Line linEtch 
      BorderColor     =   &H00808080&
      BorderStyle     =   6  'Inside Solid
      Index           =   0
      X1              =   120
      X2              =   5520
      Y1              =   1740
      Y2              =   1740
   End
   Begin VB.Line linEtch 
      BorderColor     =   &H00FFFFFF&
      BorderWidth     =   2
      Index           =   1
      X1              =   120
      X2              =   5520
      Y1              =   1755
      Y2              =   1755
   End
   Begin VB.Label lblCopyright 
      Caption         =   "Copyright © 2024 Example Software. All rights reserved."
      ForeColor       =   &H00000000&
      Height          =   255
      Left            =   240
      TabIndex        =   3
      Top             =   1920
      Width           =   5175
   End
   Begin VB.CommandButton cmdOK 
      Cancel          =   -1  'True
      Caption         =   "OK"
      Default         =   -1  'True
      Height          =   375
      Left            =   4200
      TabIndex        =   4
      Top             =   2640
      Width           =   1215
   End
   Begin VB.CommandButton cmdSysInfo 
      Caption         =   "&System Info..."
      Height          =   375
      Left            =   2880
      TabIndex        =   5
      ToolTipText     =   "Show the Windows System Information program"
      Top             =   2640
      Width           =   1215
   End
End
Attribute VB_Name = "frmAbout"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub Form_Load()
    Caption = "About " & App.Title
    lblTitle.Caption = App.Title
    lblVersion.Caption = "Version " & App.Major & "." & App.Minor & "." & App.Revision
End Sub

Private Sub cmdOK_Click()
    Unload Me
End Sub

Private Sub cmdSysInfo_Click()
    On Error GoTo NoSysInfo
    Shell "msinfo32.exe", vbNormalFocus
    Exit Sub

NoSysInfo:
    MsgBox "System Information is not available on this computer.", vbInformation, Caption
End Sub
