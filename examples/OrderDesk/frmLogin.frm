VERSION 5.00
Begin VB.Form frmLogin 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Sign In"
   ClientHeight    =   2070
   ClientLeft      =   2835
   ClientTop       =   3480
   ClientWidth     =   4695
   ControlBox      =   0   'False
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   ScaleHeight     =   138
   ScaleMode       =   3  'Pixel
   ScaleWidth      =   313
   ShowInTaskbar   =   0   'False
   StartUpPosition =   2  'CenterScreen
   Begin VB.Label lblUser 
      Caption         =   "&User name:"
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   240
      Width           =   1215
   End
   Begin VB.TextBox txtUser 
      Height          =   315
      Left            =   1440
      TabIndex        =   1
      Top             =   180
      Width           =   3015
   End
   Begin VB.Label lblPassword 
      Caption         =   "&Password:"
      Height          =   255
      Left            =   120
      TabIndex        =   2
      Top             =   720
      Width           =   1215
   End
   Begin VB.TextBox txtPassword 
      Height          =   315
      IMEMode         =   3  'DISABLE
      Left            =   1440
      PasswordChar    =   "*"
      TabIndex        =   3
      ToolTipText     =   "Passwords are case sensitive"
      Top             =   660
      Width           =   3015
   End
   Begin VB.CheckBox chkRemember 
      Caption         =   "&Remember my user name"
      Height          =   255
      Left            =   1440
      TabIndex        =   4
      Top             =   1140
      Width           =   3015
   End
   Begin VB.CommandButton cmdOK 
      Caption         =   "OK"
      Default         =   -1  'True
      Height          =   375
      Left            =   1800
      TabIndex        =   5
      Top             =   1560
      Width           =   1215
   End
   Begin VB.CommandButton cmdCancel 
      Cancel          =   -1  'True
      Caption         =   "Cancel"
      Height          =   375
      Left            =   3240
      TabIndex        =   6
      Top             =   1560
      Width           =   1215
   End
End
Attribute VB_Name = "frmLogin"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private mAttempts As Integer

Private Sub Form_Load()
    txtUser.Text = GetSetting(App.Title, "Login", "UserName", "")
    If Len(txtUser.Text) > 0 Then chkRemember.Value = vbChecked
End Sub

Private Sub Form_Activate()
    If Len(txtUser.Text) > 0 Then txtPassword.SetFocus
End Sub

Private Sub cmdOK_Click()
    If Len(Trim$(txtUser.Text)) = 0 Then
        MsgBox "Enter your user name.", vbExclamation, Caption
        txtUser.SetFocus
        Exit Sub
    End If
    If Not PasswordIsValid(txtUser.Text, txtPassword.Text) Then
        mAttempts = mAttempts + 1
        If mAttempts >= 3 Then
            MsgBox "Too many failed attempts.", vbCritical, Caption
            Unload Me
            Exit Sub
        End If
        MsgBox "The password is not correct. Try again.", vbExclamation, Caption
        txtPassword.SelStart = 0
        txtPassword.SelLength = Len(txtPassword.Text)
        txtPassword.SetFocus
        Exit Sub
    End If
    If chkRemember.Value = vbChecked Then
        SaveSetting App.Title, "Login", "UserName", txtUser.Text
    Else
        SaveSetting App.Title, "Login", "UserName", ""
    End If
    gUserName = Trim$(txtUser.Text)
    Unload Me
End Sub

Private Sub cmdCancel_Click()
    gUserName = ""
    Unload Me
End Sub
