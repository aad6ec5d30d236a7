// A serial line with a FIFO in each direction. Registers, to be read:
//   0  level of the receiving FIFO    1  level of the sending FIFO    2  bytes lost to framing or overrun
module uart #(
    parameter DIVISOR = 434
) (
    input  wire       clk,
    input  wire       rst,
    input  wire       rx,
    output wire       tx,
    output wire [7:0] rx_data,
    output wire       rx_valid,
    input  wire       rx_ready,
    input  wire [7:0] tx_data,
    input  wire       tx_valid,
    output wire       tx_ready,
    input  wire       select,
    input  wire [1:0] address,
    output reg  [7:0] rdata,
    output reg        ack
);

    wire [7:0] received, sending;
    wire       received_valid, framing_error, sender_ready;
    wire       rx_full, rx_empty, tx_full, tx_empty;
    wire [4:0] rx_level;
    wire [3:0] tx_level;
    reg  [7:0] lost;

    assign rx_valid = !rx_empty;
    assign tx_ready = !tx_full;

    uart_rx #(.DIVISOR(DIVISOR)) u_rx (
        .clk(clk), .rst(rst), .rx(rx), .data(received), .valid(received_valid),
        .framing_error(framing_error));

    fifo #(.WIDTH(8), .DEPTH_LOG2(4)) u_rx_fifo (
        .clk(clk), .rst(rst), .push(received_valid), .din(received), .pop(rx_ready), .dout(rx_data),
        .full(rx_full), .empty(rx_empty), .level(rx_level));

    fifo #(.WIDTH(8), .DEPTH_LOG2(3)) u_tx_fifo (
        .clk(clk), .rst(rst), .push(tx_valid), .din(tx_data), .pop(sender_ready), .dout(sending),
        .full(tx_full), .empty(tx_empty), .level(tx_level));

    uart_tx #(.DIVISOR(DIVISOR)) u_tx (
        .clk(clk), .rst(rst), .data(sending), .valid(!tx_empty), .ready(sender_ready), .tx(tx));

    always @(posedge clk)
        if (rst) begin
            lost  <= 8'd0;
            ack   <= 1'b0;
            rdata <= 8'd0;
        end else begin
            lost <= lost + {7'd0, framing_error || (received_valid && rx_full)};
            ack  <= select && !ack;
            case (address)
                2'd0:    rdata <= {3'd0, rx_level};
                2'd1:    rdata <= {4'd0, tx_level};
                default: rdata <= lost;
            endcase
        end

endmodule
