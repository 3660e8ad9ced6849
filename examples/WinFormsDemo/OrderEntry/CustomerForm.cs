using System.Windows.Forms;

namespace OrderEntry
{
    public partial class CustomerForm : Form
    {
        public CustomerForm()
        {
            InitializeComponent();
        }
    }
}
