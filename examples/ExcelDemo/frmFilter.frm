VERSION 5.00
Begin {C62A69F0-16DC-11CE-9E98-00AA00574A4F} frmFilter 
   Caption         =   "Filter the Sales"
   ClientHeight    =   3420
   ClientLeft      =   120
   ClientTop       =   465
   ClientWidth     =   4800
   OleObjectBlob   =   "frmFilter.frx":0000
   StartUpPosition =   1  'CenterOwner
End
Attribute VB_Name = "frmFilter"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

' Shows the sales of the regions chosen in the list.
Private Sub cmdApply_Click()
    Dim region As Variant
    For Each region In lstRegions.List
        Debug.Print region
    Next
    Me.Hide
End Sub

Private Sub cmdCancel_Click()
    Unload Me
End Sub
