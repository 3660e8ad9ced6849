#!/usr/bin/env bash
# Writes a synthetic VB6 project: FORMS forms of CONTROLS controls each
# (labels before text boxes, frames with option buttons, buttons), as the IDE
# saves them. Usage: bench/make-vb6-project.sh FORMS CONTROLS FOLDER
set -euo pipefail
forms=${1:?number of forms}
controls=${2:?controls per form}
folder=${3:?target folder}
mkdir -p "$folder"
crlf=$'\r'
{
  echo "Type=Exe$crlf"
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

for ((f = 1; f <= forms; f++)); do
  rows=$(( (controls + 3) / 4 ))
  height=$(( rows * 420 + 600 ))
  {
    echo "VERSION 5.00$crlf"
    echo "Begin VB.Form frmBench$f $crlf"
    echo "   Caption         =   \"Bench form $f\"$crlf"
    echo "   ClientHeight    =   $height$crlf"
    echo "   ClientWidth     =   9000$crlf"
    tab=0
    for ((c = 0; c < controls; c++)); do
      row=$(( c / 4 )); col=$(( c % 4 )); top=$(( 120 + row * 420 )); left=$(( 120 + col * 2200 ))
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
    echo "End$crlf"
    echo "Attribute VB_Name = \"frmBench$f\"$crlf"
  } > "$folder/frmBench$f.frm"
done
echo "$folder/Bench.vbp: $forms forms of $controls controls"
