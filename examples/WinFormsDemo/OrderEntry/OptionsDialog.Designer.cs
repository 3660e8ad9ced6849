namespace OrderEntry
{
    partial class OptionsDialog
    {
        private System.ComponentModel.IContainer components = null;

        protected override void Dispose(bool disposing)
        {
            if (disposing && (components != null))
            {
                components.Dispose();
            }
            base.Dispose(disposing);
        }

        #region Windows Form Designer generated code

        private void InitializeComponent()
        {
            this.tabOptions = new System.Windows.Forms.TabControl();
            this.pageGeneral = new System.Windows.Forms.TabPage();
            this.chkAutoSave = new System.Windows.Forms.CheckBox();
            this.chkConfirmDelete = new System.Windows.Forms.CheckBox();
            this.lblMinutes = new System.Windows.Forms.Label();
            this.numMinutes = new System.Windows.Forms.NumericUpDown();
            this.lblCurrency = new System.Windows.Forms.Label();
            this.cboCurrency = new System.Windows.Forms.ComboBox();
            this.pagePrinting = new System.Windows.Forms.TabPage();
            this.grpPaper = new System.Windows.Forms.GroupBox();
            this.optA4 = new System.Windows.Forms.RadioButton();
            this.optLetter = new System.Windows.Forms.RadioButton();
            this.lblCopies = new System.Windows.Forms.Label();
            this.trkCopies = new System.Windows.Forms.TrackBar();
            this.pageFolders = new System.Windows.Forms.TabPage();
            this.lblFolder = new System.Windows.Forms.Label();
            this.txtFolder = new System.Windows.Forms.TextBox();
            this.btnBrowse = new System.Windows.Forms.Button();
            this.lstRecent = new System.Windows.Forms.ListBox();
            this.btnOK = new System.Windows.Forms.Button();
            this.btnCancel = new System.Windows.Forms.Button();
            this.btnApply = new System.Windows.Forms.Button();
            this.tabOptions.SuspendLayout();
            this.pageGeneral.SuspendLayout();
            ((System.ComponentModel.ISupportInitialize)(this.numMinutes)).BeginInit();
            this.pagePrinting.SuspendLayout();
            this.grpPaper.SuspendLayout();
            ((System.ComponentModel.ISupportInitialize)(this.trkCopies)).BeginInit();
            this.pageFolders.SuspendLayout();
            this.SuspendLayout();
            // 
            // tabOptions
            // 
            this.tabOptions.Controls.Add(this.pageGeneral);
            this.tabOptions.Controls.Add(this.pagePrinting);
            this.tabOptions.Controls.Add(this.pageFolders);
            this.tabOptions.Location = new System.Drawing.Point(12, 12);
            this.tabOptions.Name = "tabOptions";
            this.tabOptions.SelectedIndex = 0;
            this.tabOptions.Size = new System.Drawing.Size(360, 210);
            this.tabOptions.TabIndex = 0;
            // 
            // pageGeneral
            // 
            this.pageGeneral.Controls.Add(this.cboCurrency);
            this.pageGeneral.Controls.Add(this.lblCurrency);
            this.pageGeneral.Controls.Add(this.numMinutes);
            this.pageGeneral.Controls.Add(this.lblMinutes);
            this.pageGeneral.Controls.Add(this.chkConfirmDelete);
            this.pageGeneral.Controls.Add(this.chkAutoSave);
            this.pageGeneral.Location = new System.Drawing.Point(4, 22);
            this.pageGeneral.Name = "pageGeneral";
            this.pageGeneral.Padding = new System.Windows.Forms.Padding(3);
            this.pageGeneral.Size = new System.Drawing.Size(352, 184);
            this.pageGeneral.TabIndex = 0;
            this.pageGeneral.Text = "General";
            this.pageGeneral.UseVisualStyleBackColor = true;
            // 
            // chkAutoSave
            // 
            this.chkAutoSave.AutoSize = true;
            this.chkAutoSave.Checked = true;
            this.chkAutoSave.CheckState = System.Windows.Forms.CheckState.Checked;
            this.chkAutoSave.Location = new System.Drawing.Point(16, 16);
            this.chkAutoSave.Name = "chkAutoSave";
            this.chkAutoSave.Size = new System.Drawing.Size(160, 17);
            this.chkAutoSave.TabIndex = 0;
            this.chkAutoSave.Text = "&Save open orders every";
            // 
            // chkConfirmDelete
            // 
            this.chkConfirmDelete.AutoSize = true;
            this.chkConfirmDelete.Location = new System.Drawing.Point(16, 44);
            this.chkConfirmDelete.Name = "chkConfirmDelete";
            this.chkConfirmDelete.Size = new System.Drawing.Size(190, 17);
            this.chkConfirmDelete.TabIndex = 3;
            this.chkConfirmDelete.Text = "As&k before an order line is deleted";
            // 
            // lblMinutes
            // 
            this.lblMinutes.AutoSize = true;
            this.lblMinutes.Location = new System.Drawing.Point(240, 17);
            this.lblMinutes.Name = "lblMinutes";
            this.lblMinutes.Size = new System.Drawing.Size(43, 13);
            this.lblMinutes.TabIndex = 2;
            this.lblMinutes.Text = "minutes";
            // 
            // numMinutes
            // 
            this.numMinutes.Location = new System.Drawing.Point(180, 14);
            this.numMinutes.Maximum = new decimal(new int[] {
            60,
            0,
            0,
            0});
            this.numMinutes.Name = "numMinutes";
            this.numMinutes.Size = new System.Drawing.Size(54, 20);
            this.numMinutes.TabIndex = 1;
            this.numMinutes.Value = new decimal(new int[] {
            10,
            0,
            0,
            0});
            // 
            // lblCurrency
            // 
            this.lblCurrency.AutoSize = true;
            this.lblCurrency.Location = new System.Drawing.Point(16, 78);
            this.lblCurrency.Name = "lblCurrency";
            this.lblCurrency.Size = new System.Drawing.Size(52, 13);
            this.lblCurrency.TabIndex = 4;
            this.lblCurrency.Text = "C&urrency:";
            // 
            // cboCurrency
            // 
            this.cboCurrency.FormattingEnabled = true;
            this.cboCurrency.Items.AddRange(new object[] {
            "EUR",
            "USD",
            "GBP"});
            this.cboCurrency.Location = new System.Drawing.Point(90, 75);
            this.cboCurrency.Name = "cboCurrency";
            this.cboCurrency.Size = new System.Drawing.Size(90, 21);
            this.cboCurrency.TabIndex = 5;
            this.cboCurrency.Text = "EUR";
            // 
            // pagePrinting
            // 
            this.pagePrinting.Controls.Add(this.trkCopies);
            this.pagePrinting.Controls.Add(this.lblCopies);
            this.pagePrinting.Controls.Add(this.grpPaper);
            this.pagePrinting.Location = new System.Drawing.Point(4, 22);
            this.pagePrinting.Name = "pagePrinting";
            this.pagePrinting.Padding = new System.Windows.Forms.Padding(3);
            this.pagePrinting.Size = new System.Drawing.Size(352, 184);
            this.pagePrinting.TabIndex = 1;
            this.pagePrinting.Text = "Printing";
            this.pagePrinting.UseVisualStyleBackColor = true;
            // 
            // grpPaper
            // 
            this.grpPaper.Controls.Add(this.optLetter);
            this.grpPaper.Controls.Add(this.optA4);
            this.grpPaper.Location = new System.Drawing.Point(16, 12);
            this.grpPaper.Name = "grpPaper";
            this.grpPaper.Size = new System.Drawing.Size(150, 74);
            this.grpPaper.TabIndex = 0;
            this.grpPaper.TabStop = false;
            this.grpPaper.Text = "Paper";
            // 
            // optA4
            // 
            this.optA4.AutoSize = true;
            this.optA4.Checked = true;
            this.optA4.Location = new System.Drawing.Point(14, 22);
            this.optA4.Name = "optA4";
            this.optA4.Size = new System.Drawing.Size(38, 17);
            this.optA4.TabIndex = 0;
            this.optA4.TabStop = true;
            this.optA4.Text = "&A4";
            // 
            // optLetter
            // 
            this.optLetter.AutoSize = true;
            this.optLetter.Location = new System.Drawing.Point(14, 46);
            this.optLetter.Name = "optLetter";
            this.optLetter.Size = new System.Drawing.Size(52, 17);
            this.optLetter.TabIndex = 1;
            this.optLetter.Text = "&Letter";
            // 
            // lblCopies
            // 
            this.lblCopies.AutoSize = true;
            this.lblCopies.Location = new System.Drawing.Point(16, 100);
            this.lblCopies.Name = "lblCopies";
            this.lblCopies.Size = new System.Drawing.Size(96, 13);
            this.lblCopies.TabIndex = 1;
            this.lblCopies.Text = "&Copies of an order:";
            // 
            // trkCopies
            // 
            this.trkCopies.Location = new System.Drawing.Point(16, 120);
            this.trkCopies.Maximum = 5;
            this.trkCopies.Minimum = 1;
            this.trkCopies.Name = "trkCopies";
            this.trkCopies.Size = new System.Drawing.Size(200, 45);
            this.trkCopies.TabIndex = 2;
            this.trkCopies.Value = 1;
            // 
            // pageFolders
            // 
            this.pageFolders.Controls.Add(this.lstRecent);
            this.pageFolders.Controls.Add(this.btnBrowse);
            this.pageFolders.Controls.Add(this.txtFolder);
            this.pageFolders.Controls.Add(this.lblFolder);
            this.pageFolders.Location = new System.Drawing.Point(4, 22);
            this.pageFolders.Name = "pageFolders";
            this.pageFolders.Size = new System.Drawing.Size(352, 184);
            this.pageFolders.TabIndex = 2;
            this.pageFolders.Text = "Folders";
            // 
            // lblFolder
            // 
            this.lblFolder.AutoSize = true;
            this.lblFolder.Location = new System.Drawing.Point(16, 16);
            this.lblFolder.Name = "lblFolder";
            this.lblFolder.Size = new System.Drawing.Size(74, 13);
            this.lblFolder.TabIndex = 0;
            this.lblFolder.Text = "Orders &folder:";
            // 
            // txtFolder
            // 
            this.txtFolder.Location = new System.Drawing.Point(16, 34);
            this.txtFolder.Name = "txtFolder";
            this.txtFolder.Size = new System.Drawing.Size(240, 20);
            this.txtFolder.TabIndex = 1;
            this.txtFolder.Text = "C:\\Orders";
            // 
            // btnBrowse
            // 
            this.btnBrowse.Location = new System.Drawing.Point(262, 32);
            this.btnBrowse.Name = "btnBrowse";
            this.btnBrowse.Size = new System.Drawing.Size(75, 23);
            this.btnBrowse.TabIndex = 2;
            this.btnBrowse.Text = "&Browse...";
            // 
            // lstRecent
            // 
            this.lstRecent.FormattingEnabled = true;
            this.lstRecent.Items.AddRange(new object[] {
            "C:\\Orders\\2023",
            "C:\\Orders\\2024",
            "D:\\Archive"});
            this.lstRecent.Location = new System.Drawing.Point(16, 66);
            this.lstRecent.Name = "lstRecent";
            this.lstRecent.Size = new System.Drawing.Size(321, 95);
            this.lstRecent.TabIndex = 3;
            // 
            // btnOK
            // 
            this.btnOK.Location = new System.Drawing.Point(135, 232);
            this.btnOK.Name = "btnOK";
            this.btnOK.Size = new System.Drawing.Size(75, 23);
            this.btnOK.TabIndex = 1;
            this.btnOK.Text = "OK";
            // 
            // btnCancel
            // 
            this.btnCancel.Location = new System.Drawing.Point(216, 232);
            this.btnCancel.Name = "btnCancel";
            this.btnCancel.Size = new System.Drawing.Size(75, 23);
            this.btnCancel.TabIndex = 2;
            this.btnCancel.Text = "Cancel";
            // 
            // btnApply
            // 
            this.btnApply.Enabled = false;
            this.btnApply.Location = new System.Drawing.Point(297, 232);
            this.btnApply.Name = "btnApply";
            this.btnApply.Size = new System.Drawing.Size(75, 23);
            this.btnApply.TabIndex = 3;
            this.btnApply.Text = "&Apply";
            // 
            // OptionsDialog
            // 
            this.AcceptButton = this.btnOK;
            this.AutoScaleDimensions = new System.Drawing.SizeF(6F, 13F);
            this.AutoScaleMode = System.Windows.Forms.AutoScaleMode.Font;
            this.CancelButton = this.btnCancel;
            this.ClientSize = new System.Drawing.Size(384, 267);
            this.Controls.Add(this.btnApply);
            this.Controls.Add(this.btnCancel);
            this.Controls.Add(this.btnOK);
            this.Controls.Add(this.tabOptions);
            this.FormBorderStyle = System.Windows.Forms.FormBorderStyle.FixedDialog;
            this.MaximizeBox = false;
            this.MinimizeBox = false;
            this.Name = "OptionsDialog";
            this.ShowInTaskbar = false;
            this.Text = "Options";
            this.tabOptions.ResumeLayout(false);
            this.pageGeneral.ResumeLayout(false);
            this.pageGeneral.PerformLayout();
            ((System.ComponentModel.ISupportInitialize)(this.numMinutes)).EndInit();
            this.pagePrinting.ResumeLayout(false);
            this.pagePrinting.PerformLayout();
            this.grpPaper.ResumeLayout(false);
            this.grpPaper.PerformLayout();
            ((System.ComponentModel.ISupportInitialize)(this.trkCopies)).EndInit();
            this.pageFolders.ResumeLayout(false);
            this.pageFolders.PerformLayout();
            this.ResumeLayout(false);

        }

        #endregion

        private System.Windows.Forms.TabControl tabOptions;
        private System.Windows.Forms.TabPage pageGeneral;
        private System.Windows.Forms.CheckBox chkAutoSave;
        private System.Windows.Forms.CheckBox chkConfirmDelete;
        private System.Windows.Forms.Label lblMinutes;
        private System.Windows.Forms.NumericUpDown numMinutes;
        private System.Windows.Forms.Label lblCurrency;
        private System.Windows.Forms.ComboBox cboCurrency;
        private System.Windows.Forms.TabPage pagePrinting;
        private System.Windows.Forms.GroupBox grpPaper;
        private System.Windows.Forms.RadioButton optA4;
        private System.Windows.Forms.RadioButton optLetter;
        private System.Windows.Forms.Label lblCopies;
        private System.Windows.Forms.TrackBar trkCopies;
        private System.Windows.Forms.TabPage pageFolders;
        private System.Windows.Forms.Label lblFolder;
        private System.Windows.Forms.TextBox txtFolder;
        private System.Windows.Forms.Button btnBrowse;
        private System.Windows.Forms.ListBox lstRecent;
        private System.Windows.Forms.Button btnOK;
        private System.Windows.Forms.Button btnCancel;
        private System.Windows.Forms.Button btnApply;
    }
}
