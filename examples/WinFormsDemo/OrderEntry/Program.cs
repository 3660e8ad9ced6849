using System;
using System.Windows.Forms;

namespace OrderEntry
{
    static class Program
    {
        /// <summary>
        /// The order entry program starts on its main window.
        /// </summary>
        [STAThread]
        static void Main()
        {
            Application.EnableVisualStyles();
            Application.SetCompatibleTextRenderingDefault(false);
            Application.Run(new MainForm());
        }
    }
}
