#!/usr/bin/env bash
# Writes a synthetic VB6 project: FORMS forms of CONTROLS controls each
# (labels before text boxes, frames with option buttons, buttons), as the IDE
# saves them. With RICH=1 in the environment every form also has a toolbar of
# five buttons, a three-page tab control with a frame on each page, and a menu
# bar of three menus, so that it weighs like a form of a real application.
# Usage: [RICH=1] bench/make-vb6-project.sh FORMS CONTROLS FOLDER
set -euo pipefail
forms=${1:?number of forms}
controls=${2:?controls per form}
folder=${3:?target folder}
mkdir -p "$folder"
crlf=$'\r'
rich=${RICH:-0}
{
  echo "Type=Exe$crlf"
  if ((rich)); then
    echo "Object={831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0; MSCOMCTL.OCX$crlf"
    echo "Object={BDC217C8-ED16-11CD-956C-0000C04E4C0A}#1.1#0; TABCTL32.OCX$crlf"
  fi
  for ((f = 1; f <= forms; f++)); do echo "Form=frmBench$f.frm$crlf"; done
  echo "Startup=\"frmBench1\"$crlf"
  echo "HelpFile=\"\"$crlf"
  echo "Title=\"Bench\"$crlf"
  echo "Name=\"Bench\"$crlf"
} > "$folder/Bench.vbp"

control() { # kind name caption left top width height tabindex indent
  local pad=$9
  echo "$pad""Begin VB.$1 $2 $crlf"
  [ -n "$3" ] && echo "$pad""   Caption         =   \"$3\"$crlf"
  echo "$pad""   Height          =   $7$crlf"
  echo "$pad""   Left            =   $4$crlf"
  echo "$pad""   TabIndex        =   $8$crlf"
  echo "$pad""   Top             =   $5$crlf"
  echo "$pad""   Width           =   $6$crlf"
}

toolbar() { # five buttons along the top
  echo "   Begin MSComctlLib.Toolbar tbrMain $crlf"
  echo "      Align           =   1  'Align Top$crlf"
  echo "      Height          =   420$crlf      Left            =   0$crlf      TabIndex        =   90$crlf"
  echo "      Top             =   0$crlf      Width           =   9000$crlf"
  echo "      ButtonWidth     =   609$crlf      ButtonHeight    =   582$crlf      Appearance      =   1$crlf"
  echo "      BeginProperty Buttons {66833FE8-8583-11D1-B16A-00C0F0283628} $crlf"
  echo "         NumButtons      =   5$crlf"
  for ((b = 1; b <= 5; b++)); do
    echo "         BeginProperty Button$b {66833FEA-8583-11D1-B16A-00C0F0283628} $crlf"
    echo "            Key             =   \"Button$b\"$crlf"
    echo "            Object.ToolTipText     =   \"Button $b\"$crlf"
    echo "         EndProperty$crlf"
  done
  echo "      EndProperty$crlf"
  echo "   End$crlf"
}

tabs() { # top: a tab control of three pages, a frame with a text box on each
  local top=$1
  echo "   Begin TabDlg.SSTab tabMain $crlf"
  echo "      Height          =   2200$crlf      Left            =   120$crlf      TabIndex        =   91$crlf"
  echo "      Top             =   $top$crlf      Width           =   8700$crlf      _Version        =   393216$crlf"
  echo "      Tabs            =   3$crlf      TabsPerRow      =   3$crlf      TabHeight       =   520$crlf"
  for ((p = 0; p < 3; p++)); do
    echo "      TabCaption($p)   =   \"Page $p\"$crlf"
    echo "      Tab($p).ControlEnabled=   $([ $p = 0 ] && echo "-1  'True" || echo "0   'False")$crlf"
    echo "      Tab($p).Control(0)=   \"fraPage$p\"$crlf"
    echo "      Tab($p).ControlCount=   1$crlf"
  done
  for ((p = 0; p < 3; p++)); do
    # The controls of every page but the first stand 75000 twips to the left.
    local left=$(( p == 0 ? 240 : 240 - 75000 ))
    control Frame "fraPage$p" "Details $p" $left 480 8200 1500 $((92 + 2 * p)) "      "
    control TextBox "txtPage$p" "" 240 360 3000 285 $((93 + 2 * p)) "         "; echo "         End$crlf"
    echo "      End$crlf"
  done
  echo "   End$crlf"
}

menus() {
  for ((m = 1; m <= 3; m++)); do
    echo "   Begin VB.Menu mnuTop$m $crlf      Caption         =   \"Menu $m\"$crlf"
    for ((i = 1; i <= 3; i++)); do
      echo "      Begin VB.Menu mnuItem${m}_$i $crlf         Caption         =   \"Item $m.$i\"$crlf      End$crlf"
    done
    echo "   End$crlf"
  done
}

for ((f = 1; f <= forms; f++)); do
  rows=$(( (controls + 3) / 4 ))
  height=$(( rows * 420 + 600 ))
  ((rich)) && height=$(( height + 2800 ))
  {
    echo "VERSION 5.00$crlf"
    echo "Begin VB.Form frmBench$f $crlf"
    echo "   Caption         =   \"Bench form $f\"$crlf"
    echo "   ClientHeight    =   $height$crlf"
    echo "   ClientWidth     =   9000$crlf"
    tab=0
    for ((c = 0; c < controls; c++)); do
      row=$(( c / 4 )); col=$(( c % 4 )); top=$(( 120 + row * 420 + rich * 480 )); left=$(( 120 + col * 2200 ))
      case $(( c % 4 )) in
        0) control Label "lbl$c" "Field $c:" $left $top 900 255 $tab "   "; echo "   End$crlf" ;;
        1) control TextBox "txt$c" "" $left $top 2000 285 $tab "   "; echo "   End$crlf" ;;
        2) control CommandButton "cmd$c" "Action $c" $left $top 1800 375 $tab "   "; echo "   End$crlf" ;;
        3) control Frame "fra$c" "Group $c" $left $top 2000 400 $tab "   "
           control OptionButton "opt$c" "Choice $c" 60 120 1800 255 $((tab + 1)) "      "; echo "      End$crlf"
           echo "   End$crlf"; tab=$((tab + 1)) ;;
      esac
      tab=$((tab + 1))
    done
    if ((rich)); then
      toolbar
      tabs $(( rows * 420 + 600 ))
      menus
    fi
    echo "End$crlf"
    echo "Attribute VB_Name = \"frmBench$f\"$crlf"
  } > "$folder/frmBench$f.frm"
done
echo "$folder/Bench.vbp: $forms forms of $controls controls"
