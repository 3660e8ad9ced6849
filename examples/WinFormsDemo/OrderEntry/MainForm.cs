using System;
using System.Windows.Forms;

namespace OrderEntry
{
    public partial class MainForm : Form
    {
        public MainForm()
        {
            InitializeComponent();
        }

        private void newOrderMenuItem_Click(object sender, EventArgs e)
        {
            using (var customer = new CustomerForm())
                customer.ShowDialog(this);
        }

        private void optionsMenuItem_Click(object sender, EventArgs e)
        {
            using (var options = new OptionsDialog())
                options.ShowDialog(this);
        }

        private void exitMenuItem_Click(object sender, EventArgs e)
        {
            Close();
        }
    }
}
