#define IDH_Tiny_Form_frmTiny  1
#define IDH_Tiny_Form_frmNote  5
