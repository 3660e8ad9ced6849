VERSION 5.00
Object = "{BDC217C8-ED16-11CD-956C-0000C04E4C0A}#1.1#0"; "TABCTL32.OCX"
Begin VB.Form frmTabs 
   BeginProperty Font 
      Name            =   "Tahoma"
      Size            =   8.25
   EndProperty
   Icon            =   "frmTabs.frx":0000
   Begin TabDlg.SSTab tab1 
      Tabs            =   2
      TabCaption(0)   =   "One"
      Tab(0).Control(0)=   "Text1"
      Tab(0).ControlCount=   1
      Begin VB.TextBox Text1 
         Left            =   -74880
         Text            =   $"frmTabs.frx":0010
      End
   End
End
