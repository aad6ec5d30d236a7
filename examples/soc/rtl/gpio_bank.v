// Pins, each a channel of its own. Registers, one bit a pin:
//   0  output    1  drives the pin    2  input    3  pins that changed; a write clears them
module gpio_bank #(
    parameter CHANNELS = 4
) (
    input  wire                clk,
    input  wire                rst,
    input  wire                select,
    input  wire                write,
    input  wire [1:0]          address,
    input  wire [7:0]          wdata,
    output reg  [7:0]          rdata,
    output reg                 ack,
    inout  wire [CHANNELS-1:0] pads,
    output wire                irq
);

    reg  [CHANNELS-1:0] out, enable;
    wire [CHANNELS-1:0] in, changed;
    wire                write_enable = select && write && !ack;

    assign irq = |changed;

    genvar c;
    generate
        for (c = 0; c < CHANNELS; c = c + 1) begin : channel
            wire clear = write_enable && address == 2'd3 && wdata[c];
            gpio_channel u_channel (
                .clk(clk), .rst(rst), .out(out[c]), .enable(enable[c]), .clear(clear),
                .pad(pads[c]), .in(in[c]), .changed(changed[c]));
        end
    endgenerate

    always @(posedge clk)
        if (rst) begin
            out    <= 0;
            enable <= 0;
        end else if (write_enable) begin
            if (address == 2'd0)
                out <= wdata[CHANNELS-1:0];
            if (address == 2'd1)
                enable <= wdata[CHANNELS-1:0];
        end

    always @(posedge clk) begin
        ack <= select && !ack && !rst;
        case (address)
            2'd0:    rdata <= out;
            2'd1:    rdata <= enable;
            2'd2:    rdata <= in;
            default: rdata <= changed;
        endcase
    end

endmodule
