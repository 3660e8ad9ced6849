VERSION 5.00
Object = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"; "MSCOMCTL.OCX"
Begin VB.Form frmOptions 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Options"
   ClientHeight    =   4950
   ClientLeft      =   45
   ClientTop       =   330
   ClientWidth     =   6255
   HelpContextID   =   1060
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   ScaleHeight     =   4950
   ScaleWidth      =   6255
   ShowInTaskbar   =   0   'False
   StartUpPosition =   1  'CenterOwner
   Begin MSComctlLib.TabStrip tabOptions 
      Height          =   4095
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   6015
      _ExtentX        =   10610
      _ExtentY        =   7223
      _Version        =   393216
      BeginProperty Tabs {1EFB6598-857C-11D1-B16A-00C0F0283628} 
         NumTabs         =   3
         BeginProperty Tab1 {1EFB659A-857C-11D1-B16A-00C0F0283628} 
            Caption         =   "General"
            Key             =   "General"
            Object.ToolTipText     =   "Display and saving"
            ImageVarType    =   2
         EndProperty
         BeginProperty Tab2 {1EFB659A-857C-11D1-B16A-00C0F0283628} 
            Caption         =   "Printing"
            Key             =   "Printing"
            Object.ToolTipText     =   "How orders are printed"
            ImageVarType    =   2
         EndProperty
         BeginProperty Tab3 {1EFB659A-857C-11D1-B16A-00C0F0283628} 
            Caption         =   "Advanced"
            Key             =   "Advanced"
            Object.ToolTipText     =   "Data folder and logging"
            ImageVarType    =   2
         EndProperty
      EndProperty
   End
   Begin VB.Frame fraPage 
      BorderStyle     =   0  'None
      Caption         =   "General"
      Height          =   3555
      Index           =   0
      Left            =   240
      TabIndex        =   1
      Top             =   540
      Width           =   5775
      Begin VB.CheckBox chkShowToolbar 
         Caption         =   "Show the &toolbar"
         Height          =   255
         Left            =   120
         TabIndex        =   2
         Top             =   120
         Value           =   1  'Checked
         Width           =   4815
      End
      Begin VB.CheckBox chkShowStatusBar 
         Caption         =   "Show the status &bar"
         Height          =   255
         Left            =   120
         TabIndex        =   3
         Top             =   480
         Value           =   1  'Checked
         Width           =   4815
      End
      Begin VB.CheckBox chkConfirmDelete 
         Caption         =   "&Confirm before an order is deleted"
         Height          =   255
         Left            =   120
         TabIndex        =   4
         Top             =   840
         Value           =   1  'Checked
         Width           =   4815
      End
      Begin VB.CheckBox chkAutoSave 
         Caption         =   "Save &drafts automatically"
         Height          =   255
         Left            =   120
         TabIndex        =   5
         Top             =   1200
         Value           =   1  'Checked
         Width           =   4815
      End
      Begin VB.Label lblAutoSave 
         Caption         =   "Every 10 minutes"
         Height          =   255
         Left            =   360
         TabIndex        =   6
         Top             =   1620
         Width           =   4455
      End
      Begin VB.HScrollBar hsbAutoSave 
         Height          =   255
         LargeChange     =   5
         Left            =   360
         Max             =   60
         Min             =   1
         TabIndex        =   7
         Top             =   1920
         Value           =   10
         Width           =   4455
      End
   End
   Begin VB.Frame fraPage 
      BorderStyle     =   0  'None
      Caption         =   "Printing"
      Height          =   3555
      Index           =   1
      Left            =   240
      TabIndex        =   8
      Top             =   540
      Visible         =   0   'False
      Width           =   5775
      Begin VB.Label lblCopies 
         Caption         =   "&Copies:"
         Height          =   255
         Left            =   120
         TabIndex        =   9
         Top             =   150
         Width           =   1335
      End
      Begin VB.TextBox txtCopies 
         Alignment       =   1  'Right Justify
         Height          =   285
         Left            =   1560
         MaxLength       =   2
         TabIndex        =   10
         Text            =   "1"
         Top             =   120
         Width           =   615
      End
      Begin VB.Label lblPaper 
         Caption         =   "&Paper size:"
         Height          =   255
         Left            =   120
         TabIndex        =   11
         Top             =   510
         Width           =   1335
      End
      Begin VB.ComboBox cboPaper 
         Height          =   315
         Left            =   1560
         Style           =   2  'Dropdown List
         TabIndex        =   12
         Top             =   480
         Width           =   2415
      End
      Begin VB.CheckBox chkPrintLogo 
         Caption         =   "Print the company &logo"
         Height          =   255
         Left            =   120
         TabIndex        =   13
         Top             =   960
         Value           =   1  'Checked
         Width           =   4815
      End
      Begin VB.CheckBox chkPrintNotes 
         Caption         =   "Print customer &notes"
         Height          =   255
         Left            =   120
         TabIndex        =   14
         Top             =   1320
         Width           =   4815
      End
   End
   Begin VB.Frame fraPage 
      BorderStyle     =   0  'None
      Caption         =   "Advanced"
      Height          =   3555
      Index           =   2
      Left            =   240
      TabIndex        =   15
      Top             =   540
      Visible         =   0   'False
      Width           =   5775
      Begin VB.Label lblDataFolder 
         Caption         =   "&Data folder:"
         Height          =   255
         Left            =   120
         TabIndex        =   16
         Top             =   150
         Width           =   1335
      End
      Begin VB.TextBox txtDataFolder 
         Height          =   285
         Left            =   1560
         TabIndex        =   17
         Top             =   120
         Width           =   3615
      End
      Begin VB.CommandButton cmdBrowse 
         Caption         =   "..."
         Height          =   285
         Left            =   5235
         TabIndex        =   18
         ToolTipText     =   "Choose a folder"
         Top             =   120
         Width           =   375
      End
      Begin VB.CheckBox chkLogging 
         Caption         =   "&Write a log file"
         Height          =   255
         Left            =   120
         TabIndex        =   19
         Top             =   600
         Width           =   4815
      End
      Begin VB.Label lblLogLevel 
         Caption         =   "Log &level:"
         Height          =   255
         Left            =   360
         TabIndex        =   20
         Top             =   990
         Width           =   1095
      End
      Begin VB.ComboBox cboLogLevel 
         Height          =   315
         Left            =   1560
         Style           =   2  'Dropdown List
         TabIndex        =   21
         Top             =   960
         Width           =   2055
      End
   End
   Begin VB.CommandButton cmdOK 
      Caption         =   "OK"
      Default         =   -1  'True
      Height          =   375
      Left            =   2520
      TabIndex        =   22
      Top             =   4440
      Width           =   1095
   End
   Begin VB.CommandButton cmdCancel 
      Cancel          =   -1  'True
      Caption         =   "Cancel"
      Height          =   375
      Left            =   3780
      TabIndex        =   23
      Top             =   4440
      Width           =   1095
   End
   Begin VB.CommandButton cmdApply 
      Caption         =   "&Apply"
      Enabled         =   0   'False
      Height          =   375
      Left            =   5040
      TabIndex        =   24
      Top             =   4440
      Width           =   1095
   End
End
Attribute VB_Name = "frmOptions"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Const SECTION As String = "Options"

Private mLoading As Boolean

Private Sub Form_Load()
    mLoading = True
    cboPaper.AddItem "A4"
    cboPaper.AddItem "Letter"
    cboPaper.AddItem "Legal"
    cboLogLevel.AddItem "Errors only"
    cboLogLevel.AddItem "Errors and warnings"
    cboLogLevel.AddItem "Everything"

    chkShowToolbar.Value = GetSetting(App.Title, SECTION, "ShowToolbar", vbChecked)
    chkShowStatusBar.Value = GetSetting(App.Title, SECTION, "ShowStatusBar", vbChecked)
    chkConfirmDelete.Value = GetSetting(App.Title, SECTION, "ConfirmDelete", vbChecked)
    chkAutoSave.Value = GetSetting(App.Title, SECTION, "AutoSave", vbChecked)
    hsbAutoSave.Value = GetSetting(App.Title, SECTION, "AutoSaveMinutes", 10)
    txtCopies.Text = GetSetting(App.Title, SECTION, "Copies", "1")
    cboPaper.ListIndex = GetSetting(App.Title, SECTION, "Paper", 0)
    chkPrintLogo.Value = GetSetting(App.Title, SECTION, "PrintLogo", vbChecked)
    chkPrintNotes.Value = GetSetting(App.Title, SECTION, "PrintNotes", vbUnchecked)
    txtDataFolder.Text = GetSetting(App.Title, SECTION, "DataFolder", App.Path)
    chkLogging.Value = GetSetting(App.Title, SECTION, "Logging", vbUnchecked)
    cboLogLevel.ListIndex = GetSetting(App.Title, SECTION, "LogLevel", 0)
    UpdateAutoSaveLabel
    chkLogging_Click
    mLoading = False
    cmdApply.Enabled = False
End Sub

Private Sub tabOptions_Click()
    Dim i As Integer

    For i = fraPage.LBound To fraPage.UBound
        fraPage(i).Visible = (i = tabOptions.SelectedItem.Index - 1)
    Next i
End Sub

Private Sub MarkChanged()
    If Not mLoading Then cmdApply.Enabled = True
End Sub

Private Sub UpdateAutoSaveLabel()
    If hsbAutoSave.Value = 1 Then
        lblAutoSave.Caption = "Every minute"
    Else
        lblAutoSave.Caption = "Every " & hsbAutoSave.Value & " minutes"
    End If
    lblAutoSave.Enabled = (chkAutoSave.Value = vbChecked)
    hsbAutoSave.Enabled = (chkAutoSave.Value = vbChecked)
End Sub

Private Sub hsbAutoSave_Change()
    UpdateAutoSaveLabel
    MarkChanged
End Sub

Private Sub hsbAutoSave_Scroll()
    UpdateAutoSaveLabel
End Sub

Private Sub chkAutoSave_Click()
    UpdateAutoSaveLabel
    MarkChanged
End Sub

Private Sub chkShowToolbar_Click()
    MarkChanged
End Sub

Private Sub chkShowStatusBar_Click()
    MarkChanged
End Sub

Private Sub chkConfirmDelete_Click()
    MarkChanged
End Sub

Private Sub chkPrintLogo_Click()
    MarkChanged
End Sub

Private Sub chkPrintNotes_Click()
    MarkChanged
End Sub

Private Sub chkLogging_Click()
    lblLogLevel.Enabled = (chkLogging.Value = vbChecked)
    cboLogLevel.Enabled = (chkLogging.Value = vbChecked)
    MarkChanged
End Sub

Private Sub txtCopies_Change()
    MarkChanged
End Sub

Private Sub cboPaper_Click()
    MarkChanged
End Sub

Private Sub cboLogLevel_Click()
    MarkChanged
End Sub

Private Sub txtDataFolder_Change()
    MarkChanged
End Sub

Private Sub cmdBrowse_Click()
    Dim sFolder As String

    sFolder = InputBox("Folder for the order data:", "Data Folder", txtDataFolder.Text)
    If Len(sFolder) = 0 Then Exit Sub
    If Len(Dir$(sFolder, vbDirectory)) = 0 Then
        MsgBox "The folder " & sFolder & " does not exist.", vbExclamation, Caption
    Else
        txtDataFolder.Text = sFolder
    End If
End Sub

Private Function ApplySettings() As Boolean
    If Val(txtCopies.Text) < 1 Or Val(txtCopies.Text) > 99 Then
        tabOptions.Tabs(2).Selected = True
        MsgBox "Print from 1 to 99 copies.", vbExclamation, Caption
        Exit Function
    End If
    SaveSetting App.Title, SECTION, "ShowToolbar", chkShowToolbar.Value
    SaveSetting App.Title, SECTION, "ShowStatusBar", chkShowStatusBar.Value
    SaveSetting App.Title, SECTION, "ConfirmDelete", chkConfirmDelete.Value
    SaveSetting App.Title, SECTION, "AutoSave", chkAutoSave.Value
    SaveSetting App.Title, SECTION, "AutoSaveMinutes", hsbAutoSave.Value
    SaveSetting App.Title, SECTION, "Copies", CStr(Val(txtCopies.Text))
    SaveSetting App.Title, SECTION, "Paper", cboPaper.ListIndex
    SaveSetting App.Title, SECTION, "PrintLogo", chkPrintLogo.Value
    SaveSetting App.Title, SECTION, "PrintNotes", chkPrintNotes.Value
    SaveSetting App.Title, SECTION, "DataFolder", txtDataFolder.Text
    SaveSetting App.Title, SECTION, "Logging", chkLogging.Value
    SaveSetting App.Title, SECTION, "LogLevel", cboLogLevel.ListIndex
    frmMain.tbrMain.Visible = (chkShowToolbar.Value = vbChecked)
    frmMain.sbrMain.Visible = (chkShowStatusBar.Value = vbChecked)
    cmdApply.Enabled = False
    ApplySettings = True
End Function

Private Sub cmdApply_Click()
    ApplySettings
End Sub

Private Sub cmdOK_Click()
    If ApplySettings() Then Unload Me
End Sub

Private Sub cmdCancel_Click()
    Unload Me
End Sub
