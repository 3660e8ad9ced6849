VERSION 5.00
Begin VB.Form frmMain 
   Caption         =   "Main ""one"""
   ClientHeight    =   3000
   BackColor       =   &H8000000F&
   Begin VB.CommandButton cmdOK 
      Caption         =   "OK"
      Index           =   0
      Default         =   -1  'True
   End
End
Attribute VB_Name = "frmMain"
Option Explicit
