// Watches the bus: the last transfer, and how many there were. Reads as the number of writes.
module bus_monitor (
    input  logic        clk,
    input  logic        rst,
    input  logic        bus_request,
    input  logic        bus_write,
    input  logic        bus_ack,
    input  logic [15:0] bus_address,
    input  logic [7:0]  bus_wdata,
    input  logic        select,
    output logic [7:0]  rdata,
    output logic        ack
);

    bus_transfer_t last_transfer;
    logic [7:0]    reads, writes;
    logic          done;

    assign done = bus_request && bus_ack;

    always_ff @(posedge clk)
        if (rst) begin
            last_transfer <= '0;
            reads         <= '0;
            writes        <= '0;
        end else if (done) begin
            last_transfer.write   <= bus_write;
            last_transfer.address <= bus_address;
            last_transfer.data    <= bus_wdata;
            if (bus_write)
                writes <= writes + 8'd1;
            else
                reads <= reads + 8'd1;
        end

    always_ff @(posedge clk) begin
        ack   <= select && !ack && !rst;
        rdata <= writes;
    end

endmodule
