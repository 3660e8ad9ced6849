VERSION 5.00
Begin VB.UserControl ctlDatePicker 
   ClientHeight    =   315
   ClientLeft      =   0
   ClientTop       =   0
   ClientWidth     =   2055
   ScaleHeight     =   315
   ScaleWidth      =   2055
   Begin VB.TextBox txtDate 
      Height          =   315
      Left            =   0
      TabIndex        =   0
      Top             =   0
      Width           =   1740
   End
   Begin VB.CommandButton cmdDrop 
      Caption         =   "..."
      Height          =   315
      Left            =   1740
      TabIndex        =   1
      TabStop         =   0   'False
      ToolTipText     =   "Choose a date"
      Top             =   0
      Width           =   315
   End
End
Attribute VB_Name = "ctlDatePicker"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = True
Attribute VB_PredeclaredId = False
Attribute VB_Exposed = False
Option Explicit

Public Event Change()

Private mValue As Date

Public Property Get Value() As Date
Attribute Value.VB_Description = "The date shown, or 0 when the box is empty."
Attribute Value.VB_UserMemId = 0
    Value = mValue
End Property

Public Property Let Value(ByVal dNew As Date)
    If Int(dNew) = mValue Then Exit Property
    mValue = Int(dNew)
    ShowValue
    PropertyChanged "Value"
    RaiseEvent Change
End Property

Public Property Get Enabled() As Boolean
Attribute Enabled.VB_UserMemId = -514
    Enabled = UserControl.Enabled
End Property

Public Property Let Enabled(ByVal bNew As Boolean)
    UserControl.Enabled = bNew
    txtDate.Enabled = bNew
    cmdDrop.Enabled = bNew
    PropertyChanged "Enabled"
End Property

Private Sub ShowValue()
    If mValue = 0 Then
        txtDate.Text = ""
    Else
        txtDate.Text = Format$(mValue, "Short Date")
    End If
End Sub

Private Sub UserControl_Resize()
    ' The button keeps its square shape; the text box takes the rest.
    If ScaleWidth <= ScaleHeight Then Exit Sub
    cmdDrop.Move ScaleWidth - ScaleHeight, 0, ScaleHeight, ScaleHeight
    txtDate.Move 0, 0, ScaleWidth - ScaleHeight, ScaleHeight
End Sub

Private Sub txtDate_Validate(Cancel As Boolean)
    If Len(Trim$(txtDate.Text)) = 0 Then
        Value = 0
    ElseIf IsDate(txtDate.Text) Then
        Value = CDate(txtDate.Text)
    Else
        Cancel = True
        Beep
    End If
End Sub

Private Sub txtDate_KeyDown(KeyCode As Integer, Shift As Integer)
    ' Up and down step one day, as the common date pickers do.
    If mValue = 0 Then Exit Sub
    Select Case KeyCode
        Case vbKeyUp
            Value = mValue + 1
            KeyCode = 0
        Case vbKeyDown
            Value = mValue - 1
            KeyCode = 0
    End Select
End Sub

Private Sub cmdDrop_Click()
    Dim sText As String

    sText = InputBox("Date:", Extender.Name, IIf(mValue = 0, Format$(Date, "Short Date"), txtDate.Text))
    If Len(sText) = 0 Then Exit Sub
    If IsDate(sText) Then
        Value = CDate(sText)
    Else
        MsgBox sText & " is not a date.", vbExclamation
    End If
End Sub

Private Sub UserControl_ReadProperties(PropBag As PropertyBag)
    mValue = PropBag.ReadProperty("Value", 0)
    UserControl.Enabled = PropBag.ReadProperty("Enabled", True)
    ShowValue
End Sub

Private Sub UserControl_WriteProperties(PropBag As PropertyBag)
    PropBag.WriteProperty "Value", mValue, 0
    PropBag.WriteProperty "Enabled", UserControl.Enabled, True
End Sub
