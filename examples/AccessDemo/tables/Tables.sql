-- ----------------------------------------------------------
-- The tables of the Order Book database, as mdb-schema writes
-- them (Access dialect), with the descriptions of the tables
-- and their fields.
-- ----------------------------------------------------------

CREATE TABLE [Customers]
 (
	[CustomerID]			Long Integer NOT NULL, 
	[CompanyName]			Text (80) NOT NULL, 
	[ContactName]			Text (60), 
	[Street]			Text (80), 
	[City]			Text (40), 
	[Country]			Text (40), 
	[Phone]			Text (24), 
	[CreditLimit]			Currency, 
	[Active]			Boolean NOT NULL
);

COMMENT ON TABLE [Customers] IS 'The companies that order from us, with their addresses and credit limits.';
COMMENT ON COLUMN [Customers].[CustomerID] IS 'The number given to the customer when it was entered.';
COMMENT ON COLUMN [Customers].[CompanyName] IS 'The name invoices are made out to.';
COMMENT ON COLUMN [Customers].[CreditLimit] IS 'The most the customer may owe before new orders wait for payment.';

CREATE TABLE [Products]
 (
	[ProductID]			Long Integer NOT NULL, 
	[ProductName]			Text (80) NOT NULL, 
	[UnitPrice]			Currency, 
	[UnitsInStock]			Integer, 
	[Discontinued]			Boolean NOT NULL
);

COMMENT ON TABLE [Products] IS 'Everything we sell, with its price and stock.';

CREATE TABLE [Orders]
 (
	[OrderID]			Long Integer NOT NULL, 
	[CustomerID]			Long Integer NOT NULL, 
	[OrderDate]			DateTime NOT NULL, 
	[ShippedDate]			DateTime, 
	[ShipVia]			Text (20)
);

COMMENT ON TABLE [Orders] IS 'One row per order, the lines of each in Order Lines.';
COMMENT ON COLUMN [Orders].[ShippedDate] IS 'Empty until the goods have left the warehouse.';

CREATE TABLE [Order Lines]
 (
	[OrderID]			Long Integer NOT NULL, 
	[ProductID]			Long Integer NOT NULL, 
	[Quantity]			Integer NOT NULL, 
	[UnitPrice]			Currency NOT NULL, 
	[Discount]			Single
);

COMMENT ON TABLE [Order Lines] IS 'The products of each order, with the price agreed.';
