namespace OrderEntry
{
    partial class CustomerForm
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
            this.components = new System.ComponentModel.Container();
            this.grpAddress = new System.Windows.Forms.GroupBox();
            this.lblName = new System.Windows.Forms.Label();
            this.txtName = new System.Windows.Forms.TextBox();
            this.lblStreet = new System.Windows.Forms.Label();
            this.txtStreet = new System.Windows.Forms.TextBox();
            this.lblCity = new System.Windows.Forms.Label();
            this.txtCity = new System.Windows.Forms.TextBox();
            this.lblCountry = new System.Windows.Forms.Label();
            this.cboCountry = new System.Windows.Forms.ComboBox();
            this.grpPayment = new System.Windows.Forms.GroupBox();
            this.optInvoice = new System.Windows.Forms.RadioButton();
            this.optCard = new System.Windows.Forms.RadioButton();
            this.optCash = new System.Windows.Forms.RadioButton();
            this.chkNewsletter = new System.Windows.Forms.CheckBox();
            this.btnOK = new System.Windows.Forms.Button();
            this.btnCancel = new System.Windows.Forms.Button();
            this.helpProvider = new System.Windows.Forms.HelpProvider();
            this.grpAddress.SuspendLayout();
            this.grpPayment.SuspendLayout();
            this.SuspendLayout();
            // 
            // grpAddress
            // 
            this.grpAddress.Controls.Add(this.cboCountry);
            this.grpAddress.Controls.Add(this.lblCountry);
            this.grpAddress.Controls.Add(this.txtCity);
            this.grpAddress.Controls.Add(this.lblCity);
            this.grpAddress.Controls.Add(this.txtStreet);
            this.grpAddress.Controls.Add(this.lblStreet);
            this.grpAddress.Controls.Add(this.txtName);
            this.grpAddress.Controls.Add(this.lblName);
            this.grpAddress.Location = new System.Drawing.Point(12, 12);
            this.grpAddress.Name = "grpAddress";
            this.grpAddress.Size = new System.Drawing.Size(330, 132);
            this.grpAddress.TabIndex = 0;
            this.grpAddress.TabStop = false;
            this.grpAddress.Text = "Customer";
            // 
            // lblName
            // 
            this.lblName.AutoSize = true;
            this.lblName.Location = new System.Drawing.Point(10, 24);
            this.lblName.Name = "lblName";
            this.lblName.Size = new System.Drawing.Size(38, 13);
            this.lblName.TabIndex = 0;
            this.lblName.Text = "&Name:";
            // 
            // txtName
            // 
            this.txtName.Location = new System.Drawing.Point(80, 21);
            this.txtName.Name = "txtName";
            this.txtName.Size = new System.Drawing.Size(236, 20);
            this.txtName.TabIndex = 1;
            this.helpProvider.SetHelpString(this.txtName, "The name the customer's invoices are made out to.");
            this.helpProvider.SetShowHelp(this.txtName, true);
            // 
            // lblStreet
            // 
            this.lblStreet.AutoSize = true;
            this.lblStreet.Location = new System.Drawing.Point(10, 51);
            this.lblStreet.Name = "lblStreet";
            this.lblStreet.Size = new System.Drawing.Size(38, 13);
            this.lblStreet.TabIndex = 2;
            this.lblStreet.Text = "&Street:";
            // 
            // txtStreet
            // 
            this.txtStreet.Location = new System.Drawing.Point(80, 48);
            this.txtStreet.Name = "txtStreet";
            this.txtStreet.Size = new System.Drawing.Size(236, 20);
            this.txtStreet.TabIndex = 3;
            // 
            // lblCity
            // 
            this.lblCity.AutoSize = true;
            this.lblCity.Location = new System.Drawing.Point(10, 78);
            this.lblCity.Name = "lblCity";
            this.lblCity.Size = new System.Drawing.Size(27, 13);
            this.lblCity.TabIndex = 4;
            this.lblCity.Text = "C&ity:";
            // 
            // txtCity
            // 
            this.txtCity.Location = new System.Drawing.Point(80, 75);
            this.txtCity.Name = "txtCity";
            this.txtCity.Size = new System.Drawing.Size(150, 20);
            this.txtCity.TabIndex = 5;
            // 
            // lblCountry
            // 
            this.lblCountry.AutoSize = true;
            this.lblCountry.Location = new System.Drawing.Point(10, 105);
            this.lblCountry.Name = "lblCountry";
            this.lblCountry.Size = new System.Drawing.Size(46, 13);
            this.lblCountry.TabIndex = 6;
            this.lblCountry.Text = "C&ountry:";
            // 
            // cboCountry
            // 
            this.cboCountry.DropDownStyle = System.Windows.Forms.ComboBoxStyle.DropDownList;
            this.cboCountry.Items.AddRange(new object[] {
            "France",
            "Germany",
            "Italy",
            "Spain"});
            this.cboCountry.Location = new System.Drawing.Point(80, 102);
            this.cboCountry.Name = "cboCountry";
            this.cboCountry.Size = new System.Drawing.Size(150, 21);
            this.cboCountry.TabIndex = 7;
            // 
            // grpPayment
            // 
            this.grpPayment.Controls.Add(this.optCash);
            this.grpPayment.Controls.Add(this.optCard);
            this.grpPayment.Controls.Add(this.optInvoice);
            this.grpPayment.Location = new System.Drawing.Point(12, 152);
            this.grpPayment.Name = "grpPayment";
            this.grpPayment.Size = new System.Drawing.Size(330, 50);
            this.grpPayment.TabIndex = 1;
            this.grpPayment.TabStop = false;
            this.grpPayment.Text = "Payment";
            // 
            // optInvoice
            // 
            this.optInvoice.AutoSize = true;
            this.optInvoice.Checked = true;
            this.optInvoice.Location = new System.Drawing.Point(14, 20);
            this.optInvoice.Name = "optInvoice";
            this.optInvoice.Size = new System.Drawing.Size(60, 17);
            this.optInvoice.TabIndex = 0;
            this.optInvoice.TabStop = true;
            this.optInvoice.Text = "&Invoice";
            // 
            // optCard
            // 
            this.optCard.AutoSize = true;
            this.optCard.Location = new System.Drawing.Point(120, 20);
            this.optCard.Name = "optCard";
            this.optCard.Size = new System.Drawing.Size(76, 17);
            this.optCard.TabIndex = 1;
            this.optCard.Text = "Credit &card";
            // 
            // optCash
            // 
            this.optCash.AutoSize = true;
            this.optCash.Location = new System.Drawing.Point(230, 20);
            this.optCash.Name = "optCash";
            this.optCash.Size = new System.Drawing.Size(49, 17);
            this.optCash.TabIndex = 2;
            this.optCash.Text = "C&ash";
            // 
            // chkNewsletter
            // 
            this.chkNewsletter.AutoSize = true;
            this.chkNewsletter.Location = new System.Drawing.Point(12, 214);
            this.chkNewsletter.Name = "chkNewsletter";
            this.chkNewsletter.Size = new System.Drawing.Size(148, 17);
            this.chkNewsletter.TabIndex = 2;
            this.chkNewsletter.Text = "Send the monthly &letter";
            this.helpProvider.SetHelpString(this.chkNewsletter, "Adds the customer to the list of the monthly letter.");
            // 
            // btnOK
            // 
            this.btnOK.DialogResult = System.Windows.Forms.DialogResult.OK;
            this.btnOK.Location = new System.Drawing.Point(186, 242);
            this.btnOK.Name = "btnOK";
            this.btnOK.Size = new System.Drawing.Size(75, 23);
            this.btnOK.TabIndex = 3;
            this.btnOK.Text = "OK";
            this.btnOK.UseVisualStyleBackColor = true;
            // 
            // btnCancel
            // 
            this.btnCancel.DialogResult = System.Windows.Forms.DialogResult.Cancel;
            this.btnCancel.Location = new System.Drawing.Point(267, 242);
            this.btnCancel.Name = "btnCancel";
            this.btnCancel.Size = new System.Drawing.Size(75, 23);
            this.btnCancel.TabIndex = 4;
            this.btnCancel.Text = "Cancel";
            this.btnCancel.UseVisualStyleBackColor = true;
            // 
            // CustomerForm
            // 
            this.AcceptButton = this.btnOK;
            this.AutoScaleDimensions = new System.Drawing.SizeF(6F, 13F);
            this.AutoScaleMode = System.Windows.Forms.AutoScaleMode.Font;
            this.CancelButton = this.btnCancel;
            this.ClientSize = new System.Drawing.Size(354, 277);
            this.Controls.Add(this.btnCancel);
            this.Controls.Add(this.btnOK);
            this.Controls.Add(this.chkNewsletter);
            this.Controls.Add(this.grpPayment);
            this.Controls.Add(this.grpAddress);
            this.FormBorderStyle = System.Windows.Forms.FormBorderStyle.FixedDialog;
            this.MaximizeBox = false;
            this.MinimizeBox = false;
            this.Name = "CustomerForm";
            this.StartPosition = System.Windows.Forms.FormStartPosition.CenterParent;
            this.Text = "Customer";
            this.grpAddress.ResumeLayout(false);
            this.grpAddress.PerformLayout();
            this.grpPayment.ResumeLayout(false);
            this.grpPayment.PerformLayout();
            this.ResumeLayout(false);
            this.PerformLayout();

        }

        #endregion

        private System.Windows.Forms.GroupBox grpAddress;
        private System.Windows.Forms.Label lblName;
        private System.Windows.Forms.TextBox txtName;
        private System.Windows.Forms.Label lblStreet;
        private System.Windows.Forms.TextBox txtStreet;
        private System.Windows.Forms.Label lblCity;
        private System.Windows.Forms.TextBox txtCity;
        private System.Windows.Forms.Label lblCountry;
        private System.Windows.Forms.ComboBox cboCountry;
        private System.Windows.Forms.GroupBox grpPayment;
        private System.Windows.Forms.RadioButton optInvoice;
        private System.Windows.Forms.RadioButton optCard;
        private System.Windows.Forms.RadioButton optCash;
        private System.Windows.Forms.CheckBox chkNewsletter;
        private System.Windows.Forms.Button btnOK;
        private System.Windows.Forms.Button btnCancel;
        private System.Windows.Forms.HelpProvider helpProvider;
    }
}
