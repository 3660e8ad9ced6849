VERSION 5.00
Begin VB.UserControl ctlDate 
   ScaleWidth      =   1815
End
Attribute VB_Name = "ctlDate"
Attribute VB_Exposed = True
