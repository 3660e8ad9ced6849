#!/usr/bin/env python3
"""Writes the two examples whose texts are not in windows-1252, as the VB6 IDE
of an Arabic and of a Russian Windows saves them: Bazaar (font charset 178,
windows-1256) and Sklad (font charset 204, windows-1251). Each has a form whose
long caption lies in the .frx file, as the IDE keeps multi-line captions.

Run from the repository: python3 examples/scripts/make-codepage-examples.py
"""
import os
import struct

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")


def font(charset, name, size="8.25", indent="   "):
    lines = [
        "BeginProperty Font ",
        "   Name            =   \"%s\"" % name,
        "   Size            =   %s" % size,
        "   Charset         =   %d" % charset,
        "   Weight          =   400",
        "   Underline       =   0   'False",
        "   Italic          =   0   'False",
        "   Strikethrough   =   0   'False",
        "EndProperty",
    ]
    return [indent + line for line in lines]


def block(kind, name, props, charset, fontname, children=(), indent="   "):
    lines = [indent + "Begin %s %s " % (kind, name)]
    for key, value in props:
        lines.append(indent + "   %-16s=   %s" % (key, value))
    if fontname:
        lines += font(charset, fontname, indent=indent + "   ")
    for child in children:
        lines += child
    lines.append(indent + "End")
    return lines


def quoted(text):
    return '"' + text.replace('"', '""') + '"'


def write_form(folder, file_name, form_name, caption, props, charset, fontname, controls, encoding, rtl=False):
    lines = ["VERSION 5.00", "Begin VB.Form %s " % form_name]
    form_props = [("Caption", quoted(caption))] + props
    if rtl:
        form_props.append(("RightToLeft", "-1  'True"))
    for key, value in form_props:
        lines.append("   %-16s=   %s" % (key, value))
    lines += font(charset, fontname)
    for control in controls:
        lines += control
    lines.append("End")
    lines += [
        'Attribute VB_Name = "%s"' % form_name,
        "Attribute VB_GlobalNameSpace = False",
        "Attribute VB_Creatable = False",
        "Attribute VB_PredeclaredId = True",
        "Attribute VB_Exposed = False",
        "Option Explicit",
        "",
    ]
    with open(os.path.join(folder, file_name), "wb") as out:
        out.write("\r\n".join(lines).encode(encoding))


def write_frx(folder, file_name, texts, encoding):
    """Each text as the IDE keeps a caption: a 32-bit length and the bytes."""
    data = b""
    offsets = []
    for text in texts:
        offsets.append(len(data))
        raw = text.encode(encoding)
        data += struct.pack("<I", len(raw)) + raw
    with open(os.path.join(folder, file_name), "wb") as out:
        out.write(data)
    return offsets


def write_project(folder, file_name, name, title, forms, encoding):
    lines = ["Type=Exe"]
    lines += ["Form=%s" % form for form in forms]
    lines += [
        'Startup="%s"' % os.path.splitext(forms[0])[0],
        'HelpFile=""',
        "Title=%s" % quoted(title),
        'ExeName32="%s.exe"' % name,
        'Name="%s"' % name,
        'HelpContextID="0"',
        'CompatibleMode="0"',
        "MajorVer=1",
        "MinorVer=0",
        "RevisionVer=0",
        "CompilationType=0",
        "",
    ]
    with open(os.path.join(folder, file_name), "wb") as out:
        out.write("\r\n".join(lines).encode(encoding))


def label(name, caption, left, top, width, height, tab, charset, fontname, extra=()):
    props = [("BackStyle", "0  'Transparent"), ("Caption", caption), ("Height", height), ("Left", left),
             ("TabIndex", tab), ("Top", top), ("Width", width)] + list(extra)
    return block("VB.Label", name, props, charset, fontname)


def control(kind, name, caption, left, top, width, height, tab, charset, fontname):
    props = [("Caption", quoted(caption))] if caption is not None else []
    props += [("Height", height), ("Left", left), ("TabIndex", tab), ("Top", top), ("Width", width)]
    return block(kind, name, props, charset, fontname)


def menu(name, caption, children=()):
    lines = ["   Begin VB.Menu %s " % name, "      Caption         =   %s" % quoted(caption)]
    for child_name, child_caption in children:
        lines += ["      Begin VB.Menu %s " % child_name, "         Caption         =   %s" % quoted(child_caption), "      End"]
    lines.append("   End")
    return lines


def make(folder, project, title, encoding, charset, fontname, words, rtl):
    os.makedirs(folder, exist_ok=True)
    size = [("ClientHeight", "3195"), ("ClientLeft", "60"), ("ClientTop", "345"), ("ClientWidth", "4680"),
            ("LinkTopic", '"Form1"'), ("ScaleHeight", "3195"), ("ScaleWidth", "4680"),
            ("StartUpPosition", "3  'Windows Default")]
    offsets = write_frx(folder, "frmNote.frx", [words["note"]], encoding)
    write_form(folder, "frmCustomer.frm", "frmCustomer", words["customer"], size, charset, fontname, [
        label("lblName", quoted(words["name"] + ":"), "240", "300", "1215", "255", "0", charset, fontname),
        control("VB.TextBox", "txtName", None, "1560", "240", "2895", "315", "1", charset, fontname),
        label("lblAddress", quoted(words["address"] + ":"), "240", "780", "1215", "255", "2", charset, fontname),
        control("VB.TextBox", "txtAddress", None, "1560", "720", "2895", "315", "3", charset, fontname),
        control("VB.CommandButton", "cmdSave", words["save"], "1920", "2520", "1215", "375", "4", charset, fontname),
        control("VB.CommandButton", "cmdCancel", words["cancel"], "3240", "2520", "1215", "375", "5", charset, fontname),
        menu("mnuFile", words["file"], [("mnuFileExit", words["exit"])]),
    ], encoding, rtl)
    write_form(folder, "frmNote.frm", "frmNote", words["note_title"], size, charset, fontname, [
        label("lblNote", '$"frmNote.frx":%04X' % offsets[0], "240", "240", "4215", "1215", "0", charset, fontname),
        control("VB.CommandButton", "cmdClose", words["close"], "3240", "2520", "1215", "375", "1", charset, fontname),
    ], encoding, rtl)
    write_project(folder, project + ".vbp", project, title, ["frmCustomer.frm", "frmNote.frm"], encoding)


make(os.path.join(ROOT, "Bazaar"), "Bazaar", "بازار", "cp1256", 178, "Tahoma", {
    "customer": "بيانات العميل", "name": "الاسم", "address": "العنوان", "save": "حفظ", "cancel": "إلغاء",
    "file": "ملف", "exit": "خروج", "note_title": "ملاحظة", "close": "إغلاق",
    "note": "يحفظ البرنامج بيانات العملاء في قاعدة البيانات المحلية.\r\nاضغط حفظ بعد كل تغيير.",
}, rtl=True)

make(os.path.join(ROOT, "Sklad"), "Sklad", "Склад", "cp1251", 204, "MS Sans Serif", {
    "customer": "Карточка клиента", "name": "Название", "address": "Адрес", "save": "Сохранить", "cancel": "Отмена",
    "file": "Файл", "exit": "Выход", "note_title": "Примечание", "close": "Закрыть",
    "note": "Программа хранит данные клиентов в локальной базе.\r\nНажмите «Сохранить» после каждого изменения.",
}, rtl=False)
