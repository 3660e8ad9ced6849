using System.Windows.Forms;

namespace OrderEntry
{
    public partial class OptionsDialog : Form
    {
        public OptionsDialog()
        {
            InitializeComponent();
        }
    }
}
