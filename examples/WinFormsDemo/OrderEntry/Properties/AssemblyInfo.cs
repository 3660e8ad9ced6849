using System.Reflection;
using System.Runtime.InteropServices;

[assembly: AssemblyTitle("OrderEntry")]
[assembly: AssemblyDescription("Order entry for a small trading office")]
[assembly: AssemblyProduct("OrderEntry")]
[assembly: ComVisible(false)]
[assembly: AssemblyVersion("1.2.0.0")]
